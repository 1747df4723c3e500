#include "frame/com/registration.h"

#include <new>

#include "frame/values/com_pointer.h"
#include "frame/values/unique_handle.h"

namespace vorla::registration {
namespace {

Text asText(REFGUID id) {
    wchar_t text[39];
    StringFromGUID2(id, text, 39);
    return text;
}

// A failed registry call; it becomes the answer at the border of this file.
class Failure {
public:
    explicit Failure(HRESULT failure) : code(failure) {}
    HRESULT code;
};

void checkCall(HRESULT answer) {
    if (FAILED(answer)) throw Failure(answer);
}

void checkRegistry(LSTATUS answer) { checkCall(HRESULT_FROM_WIN32(static_cast<DWORD>(answer))); }

// Writes values of one key of HKEY_CLASSES_ROOT.
class Key {
public:
    explicit Key(const Text& path) {
        checkRegistry(RegCreateKeyExW(HKEY_CLASSES_ROOT, path.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr,
                                      key_.put(), nullptr));
    }

    void write(const wchar_t* name, const Text& value) const {
        checkRegistry(RegSetValueExW(key_.get(), name, 0, REG_SZ,
                                     reinterpret_cast<const BYTE*>(value.c_str()),
                                     static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t))));
    }

private:
    RegistryKey key_;
};

Text keyOf(const Publication& publication) { return L"CLSID\\" + asText(publication.classId()); }

Text programId(const Publication& publication) {
    return Text(publication.library.name) + L"." + publication.name;
}

Text versionOf(const Library& library) {
    return inDigits(library.majorVersion) + L"." + inDigits(library.minorVersion);
}

void writeClass(const Publication& publication, const Text& server) {
    const auto key = keyOf(publication);
    const auto name = programId(publication);
    Key(key).write(nullptr, name);
    const Key inProcess(key + L"\\InprocServer32");
    inProcess.write(nullptr, server);
    inProcess.write(L"ThreadingModel", L"Apartment");
    Key(key + L"\\ProgID").write(nullptr, name);
    Key(key + L"\\TypeLib").write(nullptr, asText(publication.library.id));
    Key(key + L"\\Version").write(nullptr, versionOf(publication.library));
    Key(name).write(nullptr, name);
    Key(name + L"\\CLSID").write(nullptr, asText(publication.classId()));
}

bool exists(const Text& path) {
    RegistryKey key;
    return RegOpenKeyExW(HKEY_CLASSES_ROOT, path.c_str(), 0, KEY_READ, key.put()) == ERROR_SUCCESS;
}

// The key with everything below it.
void removeTree(const Text& path) {
    RegistryKey key;
    if (RegOpenKeyExW(HKEY_CLASSES_ROOT, path.c_str(), 0, KEY_READ | KEY_WRITE, key.put()) != ERROR_SUCCESS)
        return;
    wchar_t name[256];
    for (DWORD length = 256;
         RegEnumKeyExW(key.get(), 0, name, &length, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
         length = 256)
        removeTree(path + L"\\" + name);
    checkRegistry(RegDeleteKeyW(HKEY_CLASSES_ROOT, path.c_str()));
}

// The key, unless something is left below it.
void removeIfBare(const Text& path) {
    RegistryKey key;
    if (RegOpenKeyExW(HKEY_CLASSES_ROOT, path.c_str(), 0, KEY_READ, key.put()) != ERROR_SUCCESS) return;
    DWORD subkeys = 0;
    checkRegistry(RegQueryInfoKeyW(key.get(), nullptr, nullptr, nullptr, &subkeys, nullptr, nullptr, nullptr,
                                   nullptr, nullptr, nullptr, nullptr));
    if (subkeys == 0) checkRegistry(RegDeleteKeyW(HKEY_CLASSES_ROOT, path.c_str()));
}

constexpr SYSKIND thisSystem = sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32;
constexpr const wchar_t* ownSystem = sizeof(void*) == 8 ? L"win64" : L"win32";
constexpr const wchar_t* otherSystem = sizeof(void*) == 8 ? L"win32" : L"win64";

void writeTypeLibrary(const Text& server) {
    ComPointer<ITypeLib> library;
    checkCall(LoadTypeLibEx(server.c_str(), REGKIND_NONE, library.put()));
    auto path = server;
    checkCall(RegisterTypeLib(library.get(), path.data(), nullptr));
}

Text typeLibraryKey(const Library& library) { return L"TypeLib\\" + asText(library.id); }

Text typeLibraryVersionKey(const Library& library) {
    return typeLibraryKey(library) + L"\\" + versionOf(library);
}

// Whether the twin of the other word size is registered too. Both share the names of the classes, the
// type library's key and the interfaces; only class identifiers have a place for each.
bool isSharedWithTwin(const Library& library) {
    return exists(typeLibraryVersionKey(library) + L"\\0\\" + otherSystem);
}

void removeTypeLibrary(const Library& library, std::span<const Publication* const> classes) {
    // Does what it can; what it leaves, on this system or another, is removed below.
    UnRegisterTypeLib(library.id, library.majorVersion, library.minorVersion, 0, thisSystem);
    removeTree(typeLibraryVersionKey(library));
    removeIfBare(typeLibraryKey(library));
    for (const Publication* publication : classes)
        removeTree(L"Interface\\" + asText(publication->interfaceId()));
}

template <class Work>
HRESULT guarded(Work&& work) noexcept {
    try {
        work();
        return S_OK;
    } catch (const Failure& failure) {
        return failure.code;
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (...) {
        return E_UNEXPECTED;
    }
}

}  // namespace

HRESULT add(const Library& library, std::span<const Publication* const> classes,
            const Text& server) noexcept {
    const auto answer = guarded([&] {
        writeTypeLibrary(server);
        for (const Publication* publication : classes) writeClass(*publication, server);
    });
    if (FAILED(answer)) remove(library, classes);
    return answer;
}

HRESULT remove(const Library& library, std::span<const Publication* const> classes) noexcept {
    return guarded([&] {
        for (const Publication* publication : classes) removeTree(keyOf(*publication));
        if (isSharedWithTwin(library)) {
            removeTree(typeLibraryVersionKey(library) + L"\\0\\" + ownSystem);
            return;
        }
        for (const Publication* publication : classes) removeTree(programId(*publication));
        removeTypeLibrary(library, classes);
    });
}

}  // namespace vorla::registration
