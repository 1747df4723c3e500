// Removes keys of HKEY_CLASSES_ROOT with everything below them, and remembers and restores them.
#pragma once

#include <vector>

#include "frame/values/text.h"
#include "frame/values/unique_handle.h"
#include "frame/values/winapi.h"

namespace vorla::registration {

/// A registration that cannot continue, with the code that its caller gets.
class Failure {
public:
    explicit Failure(HRESULT failure) : code(failure) {}
    HRESULT code;
};

inline void checkCall(HRESULT answer) {
    if (FAILED(answer)) throw Failure(answer);
}
inline void checkRegistry(LSTATUS answer) { checkCall(HRESULT_FROM_WIN32(static_cast<DWORD>(answer))); }

/// Opens the key; empty when the key does not exist. Any other failure is thrown.
RegistryKey openedIfThere(const Text& path, REGSAM access);

/// Removes the key and everything below it; a missing key is not a failure. Stops at the first key that
/// cannot be removed.
void removeTree(const Text& path);

/// A key and everything below it, or its absence, as found when this was made.
class TreeCopy {
public:
    explicit TreeCopy(const Text& path);

    /// Restores the key. Writes only what has changed, and continues when the system refuses something.
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
    // Empty when the key did not exist.
    std::vector<Branch> kept_;
};

}  // namespace vorla::registration
