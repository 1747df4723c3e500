#include "harness.h"

#include <algorithm>
#include <stdexcept>

namespace vorla::bench {

double nanoseconds() {
    static const double period = [] {
        LARGE_INTEGER frequency;
        QueryPerformanceFrequency(&frequency);
        return 1e9 / static_cast<double>(frequency.QuadPart);
    }();
    LARGE_INTEGER now;
    QueryPerformanceCounter(&now);
    return static_cast<double>(now.QuadPart) * period;
}

namespace {

constexpr int fewestRounds = 7;

// The number of repetitions that fill a slice. The first runs also warm up caches.
std::size_t repetitionsFor(const Effort& effort, const Batch& subject) {
    std::size_t repetitions = 1;
    double time = subject(repetitions);
    while (time < effort.slice / 4) {
        repetitions *= 2;
        time = subject(repetitions);
    }
    const double wanted = effort.slice / time * static_cast<double>(repetitions);
    return std::max<std::size_t>(1, static_cast<std::size_t>(wanted));
}

double median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

}  // namespace

std::vector<double> medians(const Effort& effort, const std::vector<Batch>& subjects) {
    std::vector<std::size_t> repetitions;
    for (const Batch& subject : subjects) repetitions.push_back(repetitionsFor(effort, subject));

    std::vector<std::vector<double>> times(subjects.size());
    const double start = nanoseconds();
    for (int round = 0;
         round < fewestRounds || (round < effort.rounds && nanoseconds() - start < effort.limit); ++round) {
        for (std::size_t i = 0; i < subjects.size(); ++i) {
            // Every other round runs backwards, so that no subject always follows the same neighbour.
            const auto at = round % 2 == 0 ? i : subjects.size() - 1 - i;
            times[at].push_back(subjects[at](repetitions[at]) / static_cast<double>(repetitions[at]));
        }
    }
    std::vector<double> result;
    for (auto& time : times) result.push_back(median(std::move(time)));
    return result;
}

namespace {

constexpr const char* build = sizeof(void*) == 4 ? "x86" : "x64";

constexpr int nameWidth = 63;
constexpr int peerWidth = 34;

// Wine reports itself through a function that Windows' ntdll does not have.
std::string systemName() {
    using Version = const char*(CDECL*)();
    const auto ntdll = GetModuleHandleW(L"ntdll.dll");
    const auto function = GetProcAddress(ntdll, "wine_get_version");
    if (!function) return "Windows";
    return std::string("Wine ") + reinterpret_cast<Version>(reinterpret_cast<void*>(function))() +
           ", not Windows";
}

// Names may hold accents, which take two bytes of UTF-8 and one column.
std::string padded(std::string text, int width) {
    const auto columns = std::count_if(text.begin(), text.end(), [](char c) { return (c & 0xC0) != 0x80; });
    return text.append(static_cast<std::size_t>(std::max<std::ptrdiff_t>(0, width - columns)), ' ');
}

// Three significant digits; the measurement is no more precise.
std::string written(double value) {
    char text[32];
    const int decimals = value < 1 ? 3 : value < 10 ? 2 : value < 100 ? 1 : 0;
    std::snprintf(text, sizeof text, "%.*f", decimals, value);
    return text;
}

std::string rightAligned(const std::string& text, std::size_t width) {
    return std::string(width > text.size() ? width - text.size() : 0, ' ') + text;
}

}  // namespace

Report::Report(const char* file, bool append) {
    if (file) file_ = std::fopen(file, append ? "ab" : "wb");
    if (file && !file_) throw std::runtime_error(std::string("cannot write ") + file);
    if (append) return;
    if (file_) std::fprintf(file_, "name\tbuild\tours in ns\tpeer\tpeer's ns\tratio\ttarget\n");
    std::printf(
        "Measured on %s. Medians; ratio and target are ours to the peer's. Rows of growth give\n"
        "the time of one character, in the longest text that the member takes against in a short one.\n\n",
        systemName().c_str());
    std::printf("%s build      ours ns  %s      peer ns   ratio  target\n", padded("what", nameWidth).c_str(),
                padded("peer", peerWidth).c_str());
}

Report::~Report() {
    if (file_) std::fclose(file_);
}

void Report::add(const Row& row) {
    const double ratio = row.ours / row.peers;
    std::printf("%s %s   %s  %s %s  %s  %s  %s\n", padded(row.name, nameWidth).c_str(), build,
                rightAligned(written(row.ours), 12).c_str(), padded(row.peer, peerWidth).c_str(),
                rightAligned(written(row.peers), 12).c_str(), rightAligned(written(ratio), 6).c_str(),
                rightAligned(written(row.target), 6).c_str(), ratio <= row.target ? "met" : "MISSED");
    std::fflush(stdout);
    if (!file_) return;
    std::fprintf(file_, "%s\t%s\t%.4g\t%s\t%.4g\t%.4g\t%.4g\n", row.name.c_str(), build, row.ours,
                 row.peer.c_str(), row.peers, ratio, row.target);
    std::fflush(file_);
}

}  // namespace vorla::bench
