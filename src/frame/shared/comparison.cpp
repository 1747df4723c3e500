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

bool areEqual(VariantView Valeur1, VariantView Valeur2) { return compared(Valeur1, Valeur2) == VARCMP_EQ; }

}  // namespace vorla
