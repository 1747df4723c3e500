// The binary type-library file, for the few values that a system's writer may get wrong: record sizes of 0,
// and True stored as 255.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace vorla::typelib {

class TypeLibraryFile {
public:
    explicit TypeLibraryFile(std::wstring path);

    /// Stores the size of record number `type`, in the order in which types were created, if it is missing.
    void setRecordSize(std::size_t type, std::uint32_t size);

    /// Changes each boolean default of the interface `type` that is not False to the automation True.
    void mendTrueDefaults(std::size_t type);

    void save() const;

private:
    std::uint32_t& word(std::size_t offset);
    std::size_t typeInformation(std::size_t type);

    std::wstring path_;
    std::vector<std::uint32_t> words_;
};

}  // namespace vorla::typelib
