# The fuzz targets of the rules that read text. As tests they run briefly, with the same inputs each time.
# With VORLA_FUZZ_SECONDS in the environment each runs that long, with a new seed each time.

foreach(rule fields terminator columns replacement occurrences quoting keys nextCode
             paths extensions folderLevels escapes controlKeys messages amounts bankKey dateOrder
             versions leadingNumbers fileTypes replies mediaStates)
    add_executable(fuzz_${rule} fuzz.cpp)
    target_compile_definitions(fuzz_${rule} PRIVATE VORLA_RULE=${rule})
    # The comparisons of the rules guide the fuzzer; recording those of the oracle, which walks long texts
    # character by character, takes most of the time and reaches no other branch.
    target_compile_options(fuzz_${rule} PRIVATE -fno-sanitize-coverage=trace-cmp)
    target_link_options(fuzz_${rule} PRIVATE -fsanitize=fuzzer)
    target_link_libraries(fuzz_${rule} PRIVATE vorla_rules)
    add_test(NAME fuzz.${rule} COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/fuzz.sh $<TARGET_FILE:fuzz_${rule}>)
endforeach()
