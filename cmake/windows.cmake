# The component, the program that writes its type library, and the tests that drive it under Wine.
enable_language(RC)

execute_process(COMMAND ${CMAKE_CXX_COMPILER} -v ERROR_VARIABLE compiler_description)
if(NOT compiler_description MATCHES "Thread model: win32.*gcc version 12")
    message(FATAL_ERROR "${CMAKE_CXX_COMPILER} is not GCC 12 with the thread model win32, which Vorla6 is built with.")
endif()

add_compile_definitions(UNICODE _UNICODE NOMINMAX WINVER=0x0501 _WIN32_WINNT=0x0501)
add_compile_options(-ffunction-sections -fdata-sections)
add_link_options(-static -Wl,--gc-sections)

add_library(vorla_frame OBJECT
    src/frame/com/class_factory.cpp
    src/frame/com/crossing.cpp
    src/frame/com/dispatch.cpp
    src/frame/com/error_texts.cpp
    src/frame/com/instance.cpp
    src/frame/com/publication.cpp
    src/frame/com/registration.cpp
    src/frame/com/registry_tree.cpp
    src/frame/shared/browsing.cpp
    src/frame/shared/comparison.cpp
    src/frame/shared/durations.cpp
    src/frame/shared/files.cpp
    src/frame/shared/host_queries.cpp
    src/frame/shared/profile.cpp
    src/frame/shared/system_queries.cpp
    src/frame/shared/waiting.cpp
    src/frame/host/bound_object.cpp
    src/frame/host/error_object.cpp
    src/frame/host/globals.cpp
    src/frame/host/host_items.cpp
    src/frame/host/member_names.cpp
    src/frame/host/message_box.cpp
    src/frame/host/object_kinds.cpp
    src/frame/values/ansi.cpp
    src/frame/values/conversions.cpp
    src/frame/values/invocation.cpp
    src/frame/values/locked_array.cpp
    src/frame/values/module.cpp
    src/frame/values/per_thread.cpp
    src/frame/values/variant.cpp)
# The error object is oleaut32's; the import library of ole32 has it too, but before Windows 8 ole32 has not.
target_link_libraries(vorla_frame PUBLIC vorla_rules oleaut32 ole32 uuid)
# The component itself takes no precompiled headers: GCC then orders some of its output differently, and two clean
# builds are to be the same bytes.

add_library(vorla_classes OBJECT
    src/frame/com/catalogue.cpp
    src/frame/com/eEnum.publication.cpp
    src/graphics/PaintEffects.cpp
    src/graphics/PaintEffects.publication.cpp
    src/graphics/VorlaGraphique.cpp
    src/graphics/VorlaGraphique.publication.cpp
    src/graphics/painting.cpp
    src/graphics/form_look.cpp
    src/graphics/form_place.cpp
    src/graphics/menu_colour.cpp
    src/graphics/screen_measures.cpp
    src/graphics/text_drawing.cpp
    src/language/VorlaLangue.cpp
    src/language/VorlaLangue.publication.cpp
    src/language/form_translation.cpp
    src/language/language_store.cpp
    src/media/ClsMixer.cpp
    src/media/VorlaMultiMedia.cpp
    src/media/VorlaMultiMedia.disc.cpp
    src/media/VorlaMultiMedia.publication.cpp
    src/media/mci.cpp
    src/misc/VorlaDivers.cpp
    src/misc/VorlaDivers.controls.cpp
    src/misc/VorlaDivers.publication.cpp
    src/misc/container_switch.cpp
    src/system/VorlaFichier.cpp
    src/system/VorlaFichier.publication.cpp
    src/system/VorlaRegistre.cpp
    src/system/VorlaRegistre.publication.cpp
    src/system/VorlaSystem.cpp
    src/system/VorlaSystem.publication.cpp
    src/system/drive_tray.cpp
    src/system/file_dates.cpp
    src/text/VorlaChaine.cpp
    src/text/VorlaChaine.publication.cpp
    src/text/VorlaDate.cpp
    src/text/VorlaDate.publication.cpp
    src/text/VorlaNumerique.cpp
    src/text/VorlaNumerique.publication.cpp)
target_link_libraries(vorla_classes PUBLIC vorla_frame mpr shell32 shlwapi winmm)

# The type library is written by a program of the same build, from the same tables as the component.
add_library(type_library_writer OBJECT
    tools/typelib/contract_types.cpp
    tools/typelib/type_library_check.cpp
    tools/typelib/type_library_file.cpp
    tools/typelib/type_library_writer.cpp)
target_include_directories(type_library_writer PUBLIC tools)
target_link_libraries(type_library_writer PUBLIC vorla_frame)
target_compile_options(type_library_writer PRIVATE -Og)

function(vorla_link target)
    # Object libraries hand on their usage, not their objects.
    target_link_libraries(${target} PRIVATE ${ARGN})
    foreach(library IN LISTS ARGN)
        target_sources(${target} PRIVATE $<TARGET_OBJECTS:${library}>)
    endforeach()
endfunction()

add_executable(write_type_library tools/typelib/main.cpp)
target_link_options(write_type_library PRIVATE -municode)
vorla_link(write_type_library vorla_rules vorla_frame vorla_classes type_library_writer)

set(type_library ${CMAKE_BINARY_DIR}/Vorla6.tlb)
add_custom_command(
    OUTPUT ${type_library}
    COMMAND ${CMAKE_CROSSCOMPILING_EMULATOR} $<TARGET_FILE:write_type_library> Vorla6.tlb
    WORKING_DIRECTORY ${CMAKE_BINARY_DIR}
    DEPENDS write_type_library
    COMMENT "Writing Vorla6.tlb")

add_library(Vorla6 SHARED
    src/frame/com/exports.cpp src/frame/com/runtime_parts.cpp src/vorla6.def src/vorla6.rc)
set_source_files_properties(src/vorla6.rc PROPERTIES OBJECT_DEPENDS ${type_library})
target_include_directories(Vorla6 PRIVATE ${CMAKE_BINARY_DIR})
vorla_link(Vorla6 vorla_rules vorla_frame vorla_classes)
set_target_properties(Vorla6 PROPERTIES PREFIX "" RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR})
target_link_options(Vorla6 PRIVATE
    LINKER:--wrap=$<IF:$<EQUAL:${CMAKE_SIZEOF_VOID_P},8>,__imp_CreateSemaphoreW,_imp__CreateSemaphoreW@16>
    LINKER:--wrap=__gthr_win32_mutex_destroy
    -s -Wl,--enable-stdcall-fixup,--no-insert-timestamp,--disable-auto-image-base)

add_subdirectory(bench)

# What follows tests the component or shows it, and is built so that it builds fast.
add_compile_options(-Og)

# GoogleTest's package holds its sources; the cross compilers need it built for them.
set(googletest /usr/src/googletest/googletest)
add_library(gtest STATIC EXCLUDE_FROM_ALL ${googletest}/src/gtest-all.cc)
target_include_directories(gtest SYSTEM PUBLIC ${googletest}/include)
target_include_directories(gtest PRIVATE ${googletest})
target_compile_options(gtest PRIVATE -w)
target_compile_definitions(gtest PUBLIC GTEST_HAS_PTHREAD=0 GTEST_HAS_NOTIFICATION_=1)
# Its users get the notification first in their precompiled header, which takes no other header before it.
set(notification ${PROJECT_SOURCE_DIR}/tests/support/gtest_notification.h)
target_compile_options(gtest
    PRIVATE -include ${notification}
    INTERFACE $<$<BOOL:${CMAKE_DISABLE_PRECOMPILE_HEADERS}>:SHELL:-include ${notification}>)

# Programs of one prefix take turns: the user's language is the prefix's.
string(REGEX REPLACE "^.*/" "" word_size ${CMAKE_BINARY_DIR})
set(wine_prefix wine-${word_size})

# A test program's runs: all tests under French settings, and all under English ones with the heap watched,
# where Wine checks each block that is freed and tells of one that was overrun, freed twice or never allocated.
function(vorla_test program)
    add_test(NAME ${program}.fr_FR COMMAND ${program} WORKING_DIRECTORY ${CMAKE_BINARY_DIR})
    set_tests_properties(${program}.fr_FR PROPERTIES
        ENVIRONMENT VORLA_LANG=fr_FR.UTF-8 RESOURCE_LOCK ${wine_prefix} TIMEOUT 300)
    add_test(NAME ${program}.en_US.heap COMMAND ${program} WORKING_DIRECTORY ${CMAKE_BINARY_DIR})
    set_tests_properties(${program}.en_US.heap PROPERTIES
        ENVIRONMENT "VORLA_LANG=en_US.UTF-8;WINEDEBUG=warn+heap,fixme-all" FAIL_REGULAR_EXPRESSION "warn:heap"
        RESOURCE_LOCK ${wine_prefix} TIMEOUT 900)
endfunction()

add_subdirectory(tests/support)
target_precompile_headers(type_library_writer REUSE_FROM forms_host)
add_subdirectory(tests/frame)
add_subdirectory(tests/contract)
add_subdirectory(tests/registration)
add_subdirectory(tests/clients)
add_subdirectory(examples/cpp)
add_subdirectory(examples/entry)
add_subdirectory(examples/languages)
add_subdirectory(examples/forms)
add_subdirectory(examples/folders)
add_subdirectory(examples/painting)
