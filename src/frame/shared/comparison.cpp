#include "frame/shared/comparison.h"

#include "frame/values/conversions.h"

namespace vorla {
namespace {

// VARCMP_LT, VARCMP_EQ, VARCMP_GT or VARCMP_NULL.
HRESULT compared(VariantView one, VariantView other) {
    // VarCmp changes neither value, although its declaration does not say so.
    const auto order =
        VarCmp(const_cast<VARIANT*>(&one.raw()), const_cast<VARIANT*>(&other.raw()), LOCALE_USER_DEFAULT, 0);
    throwIfFailed(order);
    return order;
}

}  // namespace

Variant MaxVar(VariantView Valeur1, VariantView Valeur2) {
    return Variant(compared(Valeur1, Valeur2) == VARCMP_GT ? Valeur1 : Valeur2);
}

Variant MinVar(VariantView Valeur1, VariantView Valeur2) {
    return Variant(compared(Valeur1, Valeur2) == VARCMP_LT ? Valeur1 : Valeur2);
}

namespace {

// Integers that hosts do not have, but arrays of other components do. VarCmp does not know them.
bool isForeignInteger(VARTYPE type) {
    switch (type) {
        case VT_I1:
        case VT_UI2:
        case VT_UI4:
        case VT_I8:
        case VT_UI8:
        case VT_INT:
        case VT_UINT: return true;
        default: return false;
    }
}

}  // namespace

bool isEqual(VariantView one, VariantView other) {
    if (one.isObject()) return isEqual(plainValue(one).view(), other);
    if (other.isObject()) return isEqual(one, plainValue(other).view());
    if (isForeignInteger(one.type())) return isEqual(converted(one, VT_DECIMAL).view(), other);
    if (isForeignInteger(other.type())) return isEqual(one, converted(other, VT_DECIMAL).view());
    return compared(one, other) == VARCMP_EQ;
}

}  // namespace vorla
