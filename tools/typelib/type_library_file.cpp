#include "typelib/type_library_file.h"

#include "frame/values/unique_handle.h"
#include "frame/values/winapi.h"
#include "typelib/type_library_writer.h"

namespace vorla::typelib {
namespace {

File open(const std::wstring& path, DWORD access, DWORD disposition) {
    File file(CreateFileW(path.c_str(), access, 0, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) throw WriteError("cannot open the type library file");
    return file;
}

// The offsets read here in the file's header, a type's record and a function's record.
namespace at {
constexpr std::size_t flags = 0x14;
constexpr std::size_t typeCount = 0x20;
constexpr std::size_t tables = 0x54;
constexpr std::size_t membersOffset = 0x04;
constexpr std::size_t memberCounts = 0x18;
constexpr std::size_t instanceSize = 0x50;
constexpr std::size_t callFlags = 0x10;
constexpr std::size_t parameterCounts = 0x14;
}  // namespace at

constexpr std::uint32_t hasHelpFile = 0x100;
constexpr std::uint32_t hasDefaults = 0x1000;
constexpr std::size_t parameterSize = 12;

// A value stored in the word itself: the top bit, the type, then the value.
constexpr std::uint32_t inlineValue = 0x80000000u;
constexpr std::uint32_t booleanValue = inlineValue | (VT_BOOL << 26);

}  // namespace

TypeLibraryFile::TypeLibraryFile(std::wstring path) : path_(std::move(path)) {
    const File file = open(path_, GENERIC_READ, OPEN_EXISTING);
    const DWORD size = GetFileSize(file.get(), nullptr);
    DWORD read = 0;
    words_.resize((size + 3) / 4);
    if (!ReadFile(file.get(), words_.data(), size, &read, nullptr) || read != size)
        throw WriteError("cannot read the type library file");
}

std::uint32_t& TypeLibraryFile::word(std::size_t offset) { return words_.at(offset / 4); }

std::size_t TypeLibraryFile::typeInformation(std::size_t type) {
    const std::size_t offsets = at::tables + (word(at::flags) & hasHelpFile ? 4 : 0);
    const std::size_t segments = offsets + 4 * word(at::typeCount);
    return word(segments) + word(offsets + 4 * type);
}

void TypeLibraryFile::setRecordSize(std::size_t type, std::uint32_t size) {
    auto& stored = word(typeInformation(type) + at::instanceSize);
    if (stored == 0) stored = size;
}

void TypeLibraryFile::mendTrueDefaults(std::size_t type) {
    const auto information = typeInformation(type);
    const std::size_t functions = word(information + at::memberCounts) & 0xFFFF;
    // The members' records begin after a word with their total length.
    auto record = word(information + at::membersOffset) + std::size_t{4};
    for (std::size_t i = 0; i < functions; ++i) {
        const std::size_t length = word(record) & 0xFFFF;
        const std::size_t parameters = word(record + at::parameterCounts) & 0xFFFF;
        if (word(record + at::callFlags) & hasDefaults) {
            const auto defaults = record + length - parameters * (parameterSize + 4);
            for (std::size_t p = 0; p < parameters; ++p) {
                auto& value = word(defaults + 4 * p);
                if ((value & 0xFC000000u) == booleanValue && (value & 0xFFFF) != 0 && value != 0xFFFFFFFFu)
                    value = booleanValue | 0xFFFF;
            }
        }
        record += length;
    }
}

void TypeLibraryFile::save() const {
    const File file = open(path_, GENERIC_WRITE, CREATE_ALWAYS);
    const auto size = static_cast<DWORD>(words_.size() * 4);
    DWORD written = 0;
    if (!WriteFile(file.get(), words_.data(), size, &written, nullptr) || written != size)
        throw WriteError("cannot write the type library file");
}

}  // namespace vorla::typelib
