// The elements of a safe array, read where they lie.
#pragma once

#include "frame/values/variant.h"
#include "frame/values/winapi.h"

namespace vorla {

/// Holds a one-dimensional array in place, so that code of the host that runs meanwhile can neither free nor
/// resize it. It can change elements.
///
///     const LockedArray elements(Tabl);
///     for (auto i = elements.first(); i <= elements.last(); ++i) use(elements[i]);
class LockedArray {
public:
    /// Errors: 13 for what is not an array, for more than one dimension and for records; 5 for an array that
    /// was never dimensioned.
    explicit LockedArray(VariantView array);
    LockedArray(const LockedArray&) = delete;
    LockedArray& operator=(const LockedArray&) = delete;
    ~LockedArray();

    /// The bounds. `last` is below `first` in an array without elements.
    std::int32_t first() const { return first_; }
    std::int64_t last() const { return last_; }

    /// The element at an index within the bounds, for as long as the host does not change it.
    VariantView operator[](std::int64_t index) const;

private:
    SAFEARRAY* array_;
    const VARTYPE type_;
    const std::size_t size_;
    std::byte* data_ = nullptr;
    std::int32_t first_ = 0;
    std::int64_t last_ = -1;
};

}  // namespace vorla
