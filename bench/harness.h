// How the benchmark times things: ours and its peer in turn, many short slices each, medians of them,
// and a result that is compared before the first slice.
#pragma once

#include <cstdio>
#include <functional>
#include <string>
#include <vector>

#include "frame/values/winapi.h"
#include "results.h"

namespace vorla::bench {

/// How long is measured. Slices are far shorter than the system's own, and many: one that another program
/// interrupts is an outlier that does not reach the median, and no subject meets the interruptions more
/// often than its peer.
struct Effort {
    double slice;  // nanoseconds
    int rounds;
    double limit;  // nanoseconds for all rounds; what takes longer gets fewer rounds, seven at least
};

/// Runs one subject so many times and returns the nanoseconds that it took.
using Batch = std::function<double(std::size_t repetitions)>;

double nanoseconds();

/// Makes the compiler believe that somebody reads the value.
template <class T>
void keep(const T& value) {
    asm volatile("" : : "g"(&value) : "memory");
}

/// What `work` returns is destroyed inside the measured time, so that a subject frees what it made.
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

/// The table on the standard output, and the same rows for programs in a file of tab-separated values.
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

/// What the measuring functions share.
struct Bench {
    Effort effort;
    Report& report;

    /// Checks that both give the same, then times both.
    template <class Ours, class Peer>
    void compare(const std::string& name, double target, Ours ours, const std::string& peerName, Peer peer) {
        if (!same(ours(), peer())) throw WrongResult(name);
        const auto times = medians(effort, {batchOf(std::move(ours)), batchOf(std::move(peer))});
        report.add({name, times[0], peerName, times[1], target});
    }
};

}  // namespace vorla::bench
