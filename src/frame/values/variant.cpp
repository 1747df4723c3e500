#include "frame/values/variant.h"

#include <cstring>

#include "frame/values/conversions.h"

namespace vorla {

void VariantView::follow() noexcept {
    if (value_.vt == (VT_BYREF | VT_VARIANT)) {
        // A script's variable. It never refers to a further variant.
        const VARIANT variable = *value_.pvarVal;
        value_ = variable;
    }
    if (!(value_.vt & VT_BYREF) || value_.vt == (VT_BYREF | VT_RECORD)) return;
    const auto type = static_cast<VARTYPE>(value_.vt & ~VT_BYREF);
    const void* const where = value_.byref;
    if (type == VT_DECIMAL) {
        // A decimal fills the whole variant, including the place of its type.
        std::memcpy(&value_.decVal, where, sizeof(DECIMAL));
    } else {
        std::memcpy(&value_.byref, where, sizeOfValue(type));
    }
    value_.vt = type;
}

Variant::Variant(VariantView value) { throwIfFailed(copyValue(value_, value.raw())); }

Variant::Variant(const Variant& other) : Variant() {
    throwIfFailed(VariantCopy(&value_, const_cast<VARIANT*>(&other.value_)));
}

}  // namespace vorla
