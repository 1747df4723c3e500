// Counts what a process holds of Windows beside memory.
#pragma once

#include <ostream>

namespace vorla::test {

/// What this process holds at the moment. Taken from the tables of the system itself: Wine answers 0 to the
/// functions made for it, GetProcessHandleCount and GetGuiResources, and so would any comparison of them.
struct Resources {
    unsigned handles;  // of the kernel: files, keys, events, processes, threads
    unsigned drawing;  // objects of GDI
    unsigned windows;  // top-level ones and all in them

    static Resources held();

    bool operator==(const Resources&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Resources& resources);

}  // namespace vorla::test
