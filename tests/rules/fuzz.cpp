// One fuzz target per rule: VORLA_RULE is the name of its comparison. It stops at the first difference.

#include <cstdio>
#include <cstdlib>

#include "comparisons.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count) {
    vorla::Arguments arguments(bytes, count);
    const auto comparison = vorla::compare::VORLA_RULE(arguments);
    if (comparison.agrees) return 0;
    std::fprintf(stderr, "%s\n", comparison.report.c_str());
    std::abort();
}
