// Safe arrays for tests.
#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <vector>

#include "frame/values/variant.h"
#include "frame/values/winapi.h"

namespace vorla::test {

/// A variant that owns an array of one dimension. The values are converted to the type of its elements.
inline Variant arrayOf(VARTYPE type, LONG lower, const std::vector<Variant>& values) {
    SAFEARRAYBOUND bound{static_cast<ULONG>(values.size()), lower};
    SAFEARRAY* const array = SafeArrayCreate(type, 1, &bound);
    EXPECT_NE(nullptr, array);
    LONG index = lower;
    for (const Variant& value : values) {
        Variant element;
        if (type == VT_VARIANT) {
            EXPECT_EQ(S_OK, SafeArrayPutElement(array, &index, const_cast<VARIANT*>(&value.raw())));
        } else {
            EXPECT_EQ(S_OK, VariantChangeType(element.put(), const_cast<VARIANT*>(&value.raw()), 0, type));
            void* where = &element.put()->byref;
            if (type == VT_BSTR || type == VT_DISPATCH) where = element.put()->byref;
            if (type == VT_DECIMAL) where = &element.put()->decVal;
            EXPECT_EQ(S_OK, SafeArrayPutElement(array, &index, where));
        }
        ++index;
    }
    Variant owner;
    owner.put()->vt = static_cast<VARTYPE>(VT_ARRAY | type);
    owner.put()->parray = array;
    return owner;
}

/// The variable of an array that was never dimensioned.
inline Variant unallocatedArray(VARTYPE type) {
    Variant owner;
    owner.put()->vt = static_cast<VARTYPE>(VT_ARRAY | type);
    return owner;
}

/// An array of two dimensions, each with two elements from index 0.
inline Variant table(VARTYPE type) {
    SAFEARRAYBOUND bounds[] = {{2, 0}, {2, 0}};
    auto owner = unallocatedArray(type);
    owner.put()->parray = SafeArrayCreate(type, 2, bounds);
    return owner;
}

}  // namespace vorla::test
