#include "frame/values/locked_array.h"

#include <cstddef>

#include "frame/values/conversions.h"

namespace vorla {
namespace {

std::size_t sizeOfElement(VARTYPE type) {
    switch (type) {
        case VT_VARIANT: return sizeof(VARIANT);
        case VT_DECIMAL: return sizeof(DECIMAL);
        default: return sizeOfValue(type);
    }
}

}  // namespace

LockedArray::LockedArray(VariantView array)
    : array_(array.isArray() ? array.raw().parray : nullptr),
      type_(static_cast<VARTYPE>(array.type() & VT_TYPEMASK)),
      size_(sizeOfElement(type_)) {
    if (!array.isArray()) throw RuntimeError(ErrorNumber::typeMismatch);
    if (!array_) throw RuntimeError(ErrorNumber::invalidProcedureCall);
    // What a caller passes under one type may hold elements of another.
    if (SafeArrayGetDim(array_) != 1 || SafeArrayGetElemsize(array_) != size_)
        throw RuntimeError(ErrorNumber::typeMismatch);
    void* data = nullptr;
    throwIfFailed(SafeArrayAccessData(array_, &data));
    data_ = static_cast<std::byte*>(data);
    first_ = array_->rgsabound[0].lLbound;
    last_ = std::int64_t{first_} + array_->rgsabound[0].cElements - 1;
}

LockedArray::~LockedArray() { SafeArrayUnaccessData(array_); }

VariantView LockedArray::operator[](std::int64_t index) const {
    VARIANT element{};
    element.vt = static_cast<VARTYPE>(VT_BYREF | type_);
    element.byref = data_ + static_cast<std::size_t>(index - first_) * size_;
    return element;
}

}  // namespace vorla
