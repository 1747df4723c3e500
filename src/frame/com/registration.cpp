#include "frame/com/registration.h"

#include <new>
#include <vector>

#include "frame/com/registry_tree.h"
#include "frame/values/com_pointer.h"
#include "frame/values/unique_handle.h"

namespace vorla::registration {
namespace {

Text asText(REFGUID id) {
    wchar_t text[39];
    StringFromGUID2(id, text, 39);
    return text;
}

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

bool exists(const Text& path) { return static_cast<bool>(openedIfThere(path, KEY_READ)); }

// Removes the key unless something is left below it.
void removeIfBare(const Text& path) {
    const auto key = openedIfThere(path, KEY_READ);
    if (!key) return;
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

// Whether the DLL of the other word size is registered too. Both share the names of the classes, the type
// library's key and the interfaces; only class identifiers have a place for each.
bool isSharedWithTwin(const Library& library) {
    return exists(typeLibraryVersionKey(library) + L"\\0\\" + otherSystem);
}

Text interfaceKey(const Publication& publication) {
    return L"Interface\\" + asText(publication.interfaceId());
}

// The failure's code, S_OK when there was none.
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

// Removals. Each is tried even when one before it failed; the result is the first failure.
class Removal {
public:
    template <class Work>
    void operator()(Work&& work) noexcept {
        const auto answer = guarded(work);
        if (SUCCEEDED(answer_)) answer_ = answer;
    }
    HRESULT answer() const { return answer_; }

private:
    HRESULT answer_ = S_OK;
};

void removeTypeLibrary(const Library& library, std::span<const Publication* const> classes, Removal& remove) {
    // Its failures do not matter: what it leaves is removed below.
    UnRegisterTypeLib(library.id, library.majorVersion, library.minorVersion, 0, thisSystem);
    remove([&] { removeTree(typeLibraryVersionKey(library)); });
    remove([&] { removeIfBare(typeLibraryKey(library)); });
    for (const Publication* publication : classes) remove([&] { removeTree(interfaceKey(*publication)); });
}

// Every key that a registration writes to.
std::vector<TreeCopy> copiesOf(const Library& library, std::span<const Publication* const> classes) {
    std::vector<TreeCopy> copies;
    for (const Publication* publication : classes) {
        copies.emplace_back(keyOf(*publication));
        copies.emplace_back(programId(*publication));
        copies.emplace_back(interfaceKey(*publication));
    }
    copies.emplace_back(typeLibraryKey(library));
    return copies;
}

}  // namespace

HRESULT add(const Library& library, std::span<const Publication* const> classes,
            const Text& server) noexcept {
    std::vector<TreeCopy> before;
    bool wasThere = false;
    const auto copied = guarded([&] {
        before = copiesOf(library, classes);
        wasThere = exists(typeLibraryVersionKey(library));
    });
    if (FAILED(copied)) return copied;
    const auto answer = guarded([&] {
        writeTypeLibrary(server);
        for (const Publication* publication : classes) writeClass(*publication, server);
    });
    if (SUCCEEDED(answer)) return answer;
    // 64-bit systems keep interfaces for 32-bit hosts too, and only the system reaches both.
    if (!wasThere) UnRegisterTypeLib(library.id, library.majorVersion, library.minorVersion, 0, thisSystem);
    for (const TreeCopy& copy : before) copy.restore();
    return answer;
}

HRESULT remove(const Library& library, std::span<const Publication* const> classes) noexcept {
    Removal remove;
    for (const Publication* publication : classes) remove([&] { removeTree(keyOf(*publication)); });
    // If this cannot be found out, everything shared stays.
    bool shared = true;
    remove([&] { shared = isSharedWithTwin(library); });
    if (shared) {
        remove([&] { removeTree(typeLibraryVersionKey(library) + L"\\0\\" + ownSystem); });
        return remove.answer();
    }
    for (const Publication* publication : classes) remove([&] { removeTree(programId(*publication)); });
    removeTypeLibrary(library, classes, remove);
    return remove.answer();
}

}  // namespace vorla::registration
