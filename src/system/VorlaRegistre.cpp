#include "system/VorlaRegistre.h"

#include <algorithm>
#include <cstdint>
#include <string>

#include "frame/host/bound_object.h"
#include "frame/values/ansi.h"
#include "frame/values/conversions.h"
#include "frame/values/failure.h"
#include "frame/values/unique_handle.h"
#include "system/registry_data.h"

namespace vorla {
namespace {

// The number as a handle. On 64-bit systems the handles of predefined keys are sign-extended.
HKEY handleOf(CleBDR root) {
    return reinterpret_cast<HKEY>(static_cast<LONG_PTR>(static_cast<std::int32_t>(root)));
}

// Owns nothing if the key cannot be opened with this access.
RegistryKey opened(CleBDR root, TextView path, REGSAM access) {
    HKEY key = nullptr;
    const auto status = RegOpenKeyExA(handleOf(root), toAnsi(path).c_str(), 0, access, &key);
    return RegistryKey(status == ERROR_SUCCESS ? key : nullptr);
}

LSTATUS writeData(HKEY key, TextView name, DWORD type, const void* data, std::size_t size) {
    return RegSetValueExA(key, toAnsi(name).c_str(), 0, type, static_cast<const BYTE*>(data),
                          static_cast<DWORD>(size));
}

LSTATUS writeValue(HKEY key, TextView name, DataType type, VariantView value) {
    switch (static_cast<DWORD>(type)) {
        case REG_SZ: {
            const ValueText text(value);
            const auto data = toAnsi(storedText(text.view()));
            return writeData(key, name, REG_SZ, data.data(), data.size());
        }
        case REG_DWORD: {
            const auto number = convertedTo<std::int32_t>(value);
            return writeData(key, name, REG_DWORD, &number, sizeof number);
        }
        // Binary data is accepted and not stored: old hosts rely on this.
        default: return ERROR_SUCCESS;
    }
}

// Reads up to `size` bytes, or none without a buffer, and sets `size` to the length of the data.
bool readData(HKEY key, TextView name, DWORD& type, void* buffer, DWORD& size) {
    return RegQueryValueExA(key, toAnsi(name).c_str(), nullptr, &type, static_cast<BYTE*>(buffer), &size) ==
           ERROR_SUCCESS;
}

Variant readText(HKEY key, TextView name, DWORD size,
                 std::optional<std::string_view> (*rule)(std::string_view)) {
    std::string data(size, '\0');
    DWORD type = REG_NONE;
    if (!readData(key, name, type, data.data(), size)) return {};
    // Another program may have written less meanwhile.
    data.resize(std::min<std::size_t>(size, data.size()));
    const auto text = rule(data);
    return text ? Variant(bstrFromAnsi(*text)) : Variant();
}

Variant readNumber(HKEY key, TextView name) {
    std::int32_t number = 0;
    DWORD type = REG_NONE, size = sizeof number;
    return readData(key, name, type, &number, size) ? Variant(number) : Variant();
}

Variant readValue(HKEY key, TextView name) {
    DWORD type = REG_NONE, size = 0;
    if (!readData(key, name, type, nullptr, size)) return {};
    switch (type) {
        case REG_SZ: return readText(key, name, size, &readString);
        case REG_BINARY: return readText(key, name, size, &readBinary);
        case REG_DWORD: return readNumber(key, name);
        default: return {};
    }
}

// Adds the names that a registry function lists by number, from 0 until there are no more. The functions for
// keys and for values differ only in their other outputs.
template <class Enumerate>
void addNames(HKEY key, Enumerate* enumerate, const HostObject& collection) {
    constexpr std::size_t longestName = 16383;
    BoundObject names(collection);
    std::string buffer;
    for (DWORD index = 0;; ++index) {
        // A name that does not fit leaves blanks, which are skipped as a name. The names after it are still
        // listed.
        buffer.assign(longestName + 1, ' ');
        auto length = static_cast<DWORD>(buffer.size());
        const auto status = enumerate(key, index, buffer.data(), &length, nullptr, nullptr, nullptr, nullptr);
        if (status != ERROR_SUCCESS && status != ERROR_MORE_DATA) return;
        const auto name = fromAnsi(std::string_view(buffer).substr(0, length));
        const auto listed = trimmed(name);
        if (!listed.empty()) names.call(L"Add", listed);
    }
}

}  // namespace

bool VorlaRegistre::RegIsFullAccessRight(TextView Cle) {
    return endOnError(false, [&] { return static_cast<bool>(opened(root_, Cle, KEY_ALL_ACCESS)); });
}

bool VorlaRegistre::RegCreerNouvelleCle(TextView Cle) {
    return endOnError(false, [&] {
        HKEY key = nullptr;
        const auto status = RegCreateKeyExA(handleOf(root_), toAnsi(normalisedKey(Cle)).c_str(), 0, nullptr,
                                            REG_OPTION_NON_VOLATILE, KEY_ALL_ACCESS, nullptr, &key, nullptr);
        if (status != ERROR_SUCCESS) return false;
        const RegistryKey created(key);
        return true;
    });
}

bool VorlaRegistre::RegSupprimeCle(TextView Cle) {
    return endOnError(false, [&] {
        return RegDeleteKeyA(handleOf(root_), toAnsi(normalisedKey(Cle)).c_str()) == ERROR_SUCCESS;
    });
}

void VorlaRegistre::RegLireCles(TextView Cle, const HostObject& Coll) {
    endOnError([&] {
        const auto key = opened(root_, normalisedKey(Cle), KEY_READ);
        if (key) addNames(key.get(), &RegEnumKeyExA, Coll);
    });
}

void VorlaRegistre::RegLireValeurs(TextView Cle, const HostObject& Coll) {
    endOnError([&] {
        const auto key = opened(root_, normalisedKey(Cle), KEY_READ);
        if (key) addNames(key.get(), &RegEnumValueA, Coll);
    });
}

bool VorlaRegistre::RegEcritValeur(TextView Cle, TextView NomValeur, VariantView Valeur, DataType TypeValeur,
                                   const bool& CreateKeyIfNotExist) {
    return endOnError(false, [&] {
        auto key = opened(root_, normalisedKey(Cle), KEY_ALL_ACCESS);
        if (!key && CreateKeyIfNotExist && RegCreerNouvelleCle(Cle))
            key = opened(root_, normalisedKey(Cle), KEY_ALL_ACCESS);
        return key && writeValue(key.get(), NomValeur, TypeValeur, Valeur) == ERROR_SUCCESS;
    });
}

bool VorlaRegistre::RegExisteValeur(TextView Cle, TextView NomValeur) {
    return endOnError(false, [&] {
        const auto key = opened(root_, normalisedKey(Cle), KEY_READ);
        DWORD type = REG_NONE, size = 0;
        return key && readData(key.get(), NomValeur, type, nullptr, size);
    });
}

Variant VorlaRegistre::RegExisteClé(TextView Cle) {
    return endOnError(Variant(false), [&] {
        return Variant(static_cast<bool>(opened(root_, normalisedKey(Cle), KEY_READ)));
    });
}

bool VorlaRegistre::RegEffaceValeur(TextView Cle, const Text& NomValeur) {
    return endOnError(false, [&] {
        const auto key = opened(root_, normalisedKey(Cle), KEY_ALL_ACCESS);
        return key && RegDeleteValueA(key.get(), toAnsi(NomValeur).c_str()) == ERROR_SUCCESS;
    });
}

Variant VorlaRegistre::RegLitValeur(TextView Cle, TextView NomValeur) {
    return endOnError(Variant(), [&] {
        const auto key = opened(root_, normalisedKey(Cle), KEY_READ);
        return key ? readValue(key.get(), NomValeur) : Variant();
    });
}

}  // namespace vorla
