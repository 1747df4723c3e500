// Counts the Windows resources of a process other than memory.
#pragma once

#include <ostream>

namespace vorla::test {

/// The resources that this process holds. Read from the system's own tables, because under Wine
/// GetProcessHandleCount and GetGuiResources always answer 0.
struct Resources {
    unsigned handles;  // of the kernel: files, keys, events, processes, threads
    unsigned drawing;  // objects of GDI
    unsigned windows;  // top-level ones and all in them

    static Resources held();

    bool operator==(const Resources&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Resources& resources);

}  // namespace vorla::test
