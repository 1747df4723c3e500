// Keys of HKEY_CLASSES_ROOT with everything below them: removed, and remembered to be brought back.
#pragma once

#include <vector>

#include "frame/values/text.h"
#include "frame/values/unique_handle.h"
#include "frame/values/winapi.h"

namespace vorla::registration {

/// A registration that cannot go on, with the code that its caller gets.
class Failure {
public:
    explicit Failure(HRESULT failure) : code(failure) {}
    HRESULT code;
};

inline void checkCall(HRESULT answer) {
    if (FAILED(answer)) throw Failure(answer);
}
inline void checkRegistry(LSTATUS answer) { checkCall(HRESULT_FROM_WIN32(static_cast<DWORD>(answer))); }

/// The key, opened; none when it is not there. Any other failure is one.
RegistryKey openedIfThere(const Text& path, REGSAM access);

/// Removes the key and everything below it; what is not there is no failure. Stops at the first key that
/// cannot be removed.
void removeTree(const Text& path);

/// A key and everything below it, or its absence, as found when this was made.
class TreeCopy {
public:
    explicit TreeCopy(const Text& path);

    /// Makes the key what it was. Only what has changed is written. Continues after what the system refuses.
    void restore() const noexcept;

private:
    struct Value {
        Text name;
        DWORD type;
        std::vector<BYTE> data;
        bool operator==(const Value&) const = default;
    };
    struct Branch {
        Text path;
        std::vector<Value> values;
        std::vector<Branch> below;
    };

    static std::vector<Value> valuesOf(HKEY key);
    static Branch read(const Text& path, HKEY key);
    static void restoreValues(const Branch& branch, HKEY key);
    static void restore(const Branch& branch);

    Text path_;
    // One, or none when the key was not there.
    std::vector<Branch> kept_;
};

}  // namespace vorla::registration
