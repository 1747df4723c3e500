// Measures the component against what its hosts would have without it:
//
//     vorla_bench [--quick] [--append] [--results FILE] Vorla6.dll
//
// A missed target is only a line of the table, because a shared machine says nothing about correctness. A
// wrong result or a failing call is a failure, and the program then ends with 1. So ./check compares results
// only. A row that misses its target in two releases is mended, or gets a new target with the reason beside
// it.
#include <fcntl.h>
#include <io.h>

#include <cstring>

#include "subjects.h"

namespace {

using namespace vorla::bench;

constexpr Effort quick{1e5, 301, 5e8};
constexpr Effort thorough{2e5, 2001, 2e9};

struct Options {
    Effort effort = thorough;
    bool append = false;
    const char* results = nullptr;
    const char* component = nullptr;
};

bool read(int count, char** arguments, Options& options) {
    for (int i = 1; i < count; ++i) {
        if (std::strcmp(arguments[i], "--quick") == 0)
            options.effort = quick;
        else if (std::strcmp(arguments[i], "--append") == 0)
            options.append = true;
        else if (std::strcmp(arguments[i], "--results") == 0 && i + 1 < count)
            options.results = arguments[++i];
        else if (!options.component && arguments[i][0] != '-')
            options.component = arguments[i];
        else
            return false;
    }
    return options.component;
}

std::wstring wide(const char* text) {
    wchar_t result[MAX_PATH];
    if (MultiByteToWideChar(CP_ACP, 0, text, -1, result, MAX_PATH) == 0) return {};
    return result;
}

// If one group fails, the others are still measured.
bool measureAll(Bench& bench, const Component& component) {
    bool correct = true;
    for (const auto measure : {measureLateBinding, measureEarlyBinding, measureCreation, measureHostObjects,
                               measureSearches, measureGrowth, measureFormLoading, measurePainting}) {
        try {
            measure(bench, component);
        } catch (const std::exception& error) {
            std::fprintf(stderr, "vorla_bench: %s\n", error.what());
            correct = false;
        }
    }
    return correct;
}

}  // namespace

int main(int count, char** arguments) {
    Options options;
    if (!read(count, arguments, options)) {
        std::fprintf(stderr, "usage: vorla_bench [--quick] [--append] [--results FILE] Vorla6.dll\n");
        return 2;
    }
    // Line ends are those of the system that reads the file.
    _setmode(_fileno(stdout), _O_BINARY);
    CoInitialize(nullptr);
    bool correct = false;
    try {
        Report report(options.results, options.append);
        Bench bench{options.effort, report};
        correct = measureAll(bench, Component(wide(options.component).c_str()));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "vorla_bench: %s\n", error.what());
    }
    CoUninitialize();
    return correct ? 0 : 1;
}
