// Timing: our subject and its peer run in turn, in many short slices, and the medians are compared. Before
// the first slice their results are compared.
#pragma once

#include <cstdio>
#include <functional>
#include <string>
#include <vector>

#include "frame/values/winapi.h"
#include "results.h"

namespace vorla::bench {

/// The length of the measurement. Slices are far shorter than the system's own, and many. A slice that
/// another program interrupts is then an outlier that does not reach the median, and interruptions meet all
/// subjects alike.
struct Effort {
    double slice;  // nanoseconds
    int rounds;
    double limit;  // nanoseconds for all rounds; slower subjects get fewer rounds, at least seven
};

/// Runs one subject this many times and returns the nanoseconds that it took.
using Batch = std::function<double(std::size_t repetitions)>;

double nanoseconds();

/// Makes the compiler assume that the value is read.
template <class T>
void keep(const T& value) {
    asm volatile("" : : "g"(&value) : "memory");
}

/// The result of `work` is destroyed inside the measured time, so that a subject also frees what it makes.
template <class Work>
Batch batchOf(Work work) {
    return [work = std::move(work)](std::size_t repetitions) mutable {
        const double start = nanoseconds();
        for (std::size_t i = 0; i < repetitions; ++i) {
            const auto result = work();
            keep(result);
        }
        return nanoseconds() - start;
    };
}

/// The median nanoseconds of one repetition of each subject, all measured in turn in every round.
std::vector<double> medians(const Effort& effort, const std::vector<Batch>& subjects);

/// A line of the table. The target is the largest ratio of ours to the peer's that meets it.
struct Row {
    std::string name;
    double ours;
    std::string peer;
    double peers;
    double target;
};

/// Prints the table on the standard output and writes the same rows to a file of tab-separated values.
class Report {
public:
    /// `append` continues the table and the file that another build began.
    Report(const char* file, bool append);
    ~Report();
    Report(const Report&) = delete;
    Report& operator=(const Report&) = delete;

    void add(const Row& row);

private:
    std::FILE* file_ = nullptr;
};

/// The common part of the measuring functions.
struct Bench {
    Effort effort;
    Report& report;

    /// Checks that both give the same result, then times both.
    template <class Ours, class Peer>
    void compare(const std::string& name, double target, Ours ours, const std::string& peerName, Peer peer) {
        if (!same(ours(), peer())) throw WrongResult(name);
        const auto times = medians(effort, {batchOf(std::move(ours)), batchOf(std::move(peer))});
        report.add({name, times[0], peerName, times[1], target});
    }
};

}  // namespace vorla::bench
