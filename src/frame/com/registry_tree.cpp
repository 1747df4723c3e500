#include "frame/com/registry_tree.h"

#include <algorithm>

#include "frame/values/failure.h"

namespace vorla::registration {
namespace {

std::vector<Text> namesBelow(HKEY key) {
    constexpr DWORD room = 256;  // names have up to 255 characters
    std::vector<Text> names;
    for (wchar_t name[room];;) {
        DWORD length = room;
        const auto answer = RegEnumKeyExW(key, static_cast<DWORD>(names.size()), name, &length, nullptr,
                                          nullptr, nullptr, nullptr);
        if (answer == ERROR_NO_MORE_ITEMS) return names;
        checkRegistry(answer);
        names.emplace_back(name, length);
    }
}

}  // namespace

RegistryKey openedIfThere(const Text& path, REGSAM access) {
    RegistryKey key;
    const auto answer = RegOpenKeyExW(HKEY_CLASSES_ROOT, path.c_str(), 0, access, key.put());
    if (answer != ERROR_FILE_NOT_FOUND) checkRegistry(answer);
    return key;
}

void removeTree(const Text& path) {
    const auto key = openedIfThere(path, KEY_READ | KEY_WRITE);
    if (!key) return;
    for (const Text& name : namesBelow(key.get())) removeTree(path + L"\\" + name);
    checkRegistry(RegDeleteKeyW(HKEY_CLASSES_ROOT, path.c_str()));
}

TreeCopy::TreeCopy(const Text& path) : path_(path) {
    if (const auto key = openedIfThere(path, KEY_READ)) kept_.push_back(read(path, key.get()));
}

std::vector<TreeCopy::Value> TreeCopy::valuesOf(HKEY key) {
    DWORD longestName = 0, longestData = 0;
    checkRegistry(RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                                   &longestName, &longestData, nullptr, nullptr));
    std::vector<Value> values;
    Text name(longestName + 1, L'\0');
    std::vector<BYTE> data(longestData);
    for (;;) {
        DWORD length = longestName + 1, size = longestData, type = REG_NONE;
        const auto answer = RegEnumValueW(key, static_cast<DWORD>(values.size()), name.data(), &length,
                                          nullptr, &type, data.data(), &size);
        if (answer == ERROR_NO_MORE_ITEMS) return values;
        checkRegistry(answer);
        values.push_back(
            {name.substr(0, length), type, {data.begin(), data.begin() + static_cast<int>(size)}});
    }
}

TreeCopy::Branch TreeCopy::read(const Text& path, HKEY key) {
    Branch branch{path, valuesOf(key), {}};
    for (const Text& name : namesBelow(key)) {
        const auto below = path + L"\\" + name;
        if (const auto opened = openedIfThere(below, KEY_READ))
            branch.below.push_back(read(below, opened.get()));
    }
    return branch;
}

void TreeCopy::restoreValues(const Branch& branch, HKEY key) {
    const auto present = valuesOf(key);
    for (const Value& value : present) {
        const bool was = std::any_of(branch.values.begin(), branch.values.end(),
                                     [&](const Value& kept) { return kept.name == value.name; });
        if (!was) RegDeleteValueW(key, value.name.c_str());
    }
    for (const Value& value : branch.values) {
        if (std::find(present.begin(), present.end(), value) != present.end()) continue;
        RegSetValueExW(key, value.name.c_str(), 0, value.type, value.data.data(),
                       static_cast<DWORD>(value.data.size()));
    }
}

void TreeCopy::restore(const Branch& branch) {
    step([&] {
        RegistryKey key;
        checkRegistry(RegCreateKeyExW(HKEY_CLASSES_ROOT, branch.path.c_str(), 0, nullptr, 0,
                                      KEY_READ | KEY_WRITE, nullptr, key.put(), nullptr));
        step([&] { restoreValues(branch, key.get()); });
        for (const Text& name : namesBelow(key.get())) {
            const auto below = branch.path + L"\\" + name;
            const bool was = std::any_of(branch.below.begin(), branch.below.end(),
                                         [&](const Branch& kept) { return kept.path == below; });
            if (!was) step([&] { removeTree(below); });
        }
    });
    for (const Branch& below : branch.below) restore(below);
}

void TreeCopy::restore() const noexcept {
    if (kept_.empty())
        step([this] { removeTree(path_); });
    else
        restore(kept_.front());
}

}  // namespace vorla::registration
