// Automation variants as C++ values: an owner, and a view of a variant that the caller owns.
#pragma once

#include <concepts>
#include <utility>

#include "frame/values/bstr.h"
#include "frame/values/scalars.h"
#include "frame/values/winapi.h"

namespace vorla {

/// Reads the value of a variant in place, without converting or owning it. A reference to another variant or
/// to a typed variable is followed to the value.
class VariantView {
public:
    VariantView(const VARIANT& value) noexcept : value_(value) {
        if (value_.vt & VT_BYREF) follow();
    }

    VARTYPE type() const { return value_.vt; }
    bool isEmpty() const { return type() == VT_EMPTY; }
    bool isNull() const { return type() == VT_NULL; }
    bool isObject() const { return type() == VT_DISPATCH || type() == VT_UNKNOWN; }
    bool isArray() const { return (type() & VT_ARRAY) != 0; }

    /// Whether an optional argument was left out.
    bool isMissing() const { return type() == VT_ERROR && value_.scode == DISP_E_PARAMNOTFOUND; }

    const VARIANT& raw() const { return value_; }

private:
    void follow() noexcept;

    VARIANT value_;
};

/// Owns one variant. It has the layout of a VARIANT.
class Variant {
public:
    Variant() = default;
    explicit Variant(VariantView value);
    // Exactly a bool, because a pointer to characters would otherwise become True.
    template <std::same_as<bool> Boolean>
    Variant(Boolean value) noexcept : Variant(Type{VT_BOOL}) {
        value_.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
    }
    Variant(std::uint8_t value) noexcept : Variant(Type{VT_UI1}) { value_.bVal = value; }
    Variant(std::int16_t value) noexcept : Variant(Type{VT_I2}) { value_.iVal = value; }
    Variant(std::int32_t value) noexcept : Variant(Type{VT_I4}) { value_.lVal = value; }
    Variant(float value) noexcept : Variant(Type{VT_R4}) { value_.fltVal = value; }
    Variant(double value) noexcept : Variant(Type{VT_R8}) { value_.dblVal = value; }
    Variant(Currency value) noexcept : Variant(Type{VT_CY}) { value_.cyVal.int64 = value.scaled; }
    Variant(Date value) noexcept : Variant(Type{VT_DATE}) { value_.date = value.days; }
    Variant(Bstr text) noexcept : Variant(Type{VT_BSTR}) { value_.bstrVal = text.detach(); }
    Variant(TextView text) : Variant(Type{VT_BSTR}) { value_.bstrVal = Bstr(text).detach(); }
    Variant(const Variant& other);  // a reference stays one
    Variant(Variant&& other) noexcept : value_(other.detach()) {}
    Variant& operator=(Variant other) noexcept {
        std::swap(value_, other.value_);
        return *this;
    }
    ~Variant() {
        // Most hold a number, or are empty by then because they have given up what they owned.
        if (mayOwn(value_.vt)) VariantClear(&value_);
    }

    VariantView view() const { return value_; }
    const VARIANT& raw() const { return value_; }
    VARIANT detach() noexcept { return std::exchange(value_, VARIANT{}); }

    /// For a function that stores a value through a pointer. The object must be Empty.
    VARIANT* put() noexcept { return &value_; }

private:
    enum class Type : VARTYPE {};
    explicit Variant(Type type) noexcept { value_.vt = static_cast<VARTYPE>(type); }

    // Whether a value of this type may own other memory or an object.
    static bool mayOwn(VARTYPE type) { return type >= VT_BSTR && type != VT_BOOL && type != VT_ERROR; }

    VARIANT value_{};
};

static_assert(sizeof(Variant) == sizeof(VARIANT));

}  // namespace vorla
