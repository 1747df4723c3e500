// From one automation type to another, by the automation runtime's own rules, with failures as
// run-time errors.
#pragma once

#include <optional>

#include "frame/values/runtime_error.h"
#include "frame/values/variant.h"
#include "frame/values/winapi.h"

namespace vorla {

/// How many bytes a value of this type takes where a variant keeps it; 0 for a type that has none.
std::size_t sizeOfValue(VARTYPE type) noexcept;

/// The run-time number that a failure code stands for; 440, automation error, for one that has none.
std::uint16_t errorNumberOf(HRESULT failure) noexcept;

/// The automation runtime's conversion; an object by its default property, through as many objects as
/// plainValue(). One that leads to no value is a type mismatch. The source is left alone unless it is the
/// result.
HRESULT changeType(VARIANT& result, const VARIANT& source, LCID locale, USHORT flags, VARTYPE type);

/// The automation runtime's copy. It leaves its source alone, which its declaration does not say.
inline HRESULT copyValue(VARIANT& result, const VARIANT& source) {
    return VariantCopyInd(&result, const_cast<VARIANT*>(&source));
}

/// Throws the RuntimeError of a failure code, or std::bad_alloc.
[[noreturn]] void throwFailure(HRESULT failure);

/// The same for a result that is one.
inline void throwIfFailed(HRESULT result) {
    if (FAILED(result)) throwFailure(result);
}

/// What an object stands for where a value is wanted: its default property, and where that is an object, that
/// one's. Any other value is itself. Errors: 91 for Nothing, 438 for an object without a default property and
/// for one that leads through more than eight objects, or the object's own number.
Variant plainValue(VariantView value);

/// A value as one of the given type, an object by its default property; by the user's locale. Doubles
/// become integers by rounding to nearest, ties to even. Errors: 94 for Null, 13 for what cannot be
/// converted, 6 for what does not fit.
Variant converted(VariantView value, VARTYPE type);

/// The same as a C++ value: a boolean, an integer of 8 bits without a sign or of 16 or 32 bits with one, a
/// float, a double, a Currency, a Date, or a Text.
template <class Value>
Value convertedTo(VariantView value) = delete;
template <>
bool convertedTo(VariantView value);
template <>
std::uint8_t convertedTo(VariantView value);
template <>
std::int16_t convertedTo(VariantView value);
template <>
std::int32_t convertedTo(VariantView value);
template <>
float convertedTo(VariantView value);
template <>
double convertedTo(VariantView value);
template <>
Currency convertedTo(VariantView value);
template <>
Date convertedTo(VariantView value);
template <>
Text convertedTo(VariantView value);

/// A colour of the host as the 32 bits that it is, whether the host counts it with a sign or without:
/// 0x8000000F and -2147483633 are the same one. Errors: 6 for what has more bits, and as converted().
std::int32_t colourIn(VariantView value);

/// A value as text, for as long as the value and this object live: a string is viewed where it lies,
/// anything else is written out once. Locale: the user's, for numbers, dates and booleans alike.
/// Errors: 94 for Null, 13 for what has no text, 91 for Nothing, 438 for an object without a default
/// property.
class ValueText {
public:
    explicit ValueText(const VariantView& value)
        : view_(value.type() == VT_BSTR ? viewOf(value.raw().bstrVal) : write(value)) {}

    TextView view() const { return view_; }

private:
    TextView write(const VariantView& value);

    Bstr written_;
    TextView view_;
};

/// Whether a type is one that members treat as an amount: 16-bit and 32-bit integer, single, double,
/// currency or date.
bool isAmountType(VARTYPE type) noexcept;

/// A value of an amount's type as text with a point as decimal separator, whatever the system uses; a date
/// in the system's short form.
Bstr numberToInvariantText(VariantView number);

/// Whether the text is a number by the user's locale: its decimal and grouping signs, surrounding
/// blanks, a currency sign, parentheses or a trailing minus for a negative one.
bool isNumeric(TextView text);

/// The number that a text is by the same rules; none for any other text.
std::optional<double> numberIn(TextView text);

/// A number or date through a format, by the user's locale. Never a text: of a numeric one some systems write
/// all digits into a buffer for 256.
Bstr formattedValue(VariantView value, const wchar_t* format);

/// A numeric text rounded to a whole number, halves away from zero as formats round; "-" and digits, never an
/// exponent. Beyond 15 digits there are zeros.
Text roundedNumber(TextView numeric);

/// A numeric text in the general form of the user's locale, with an exponent from 10^15 on.
Text generalNumber(TextView numeric);

/// A number through a format: a pattern or the name of one of the system's formats. Locale: the user's.
/// Error 6 for what is no number and for a number of more than 28 digits.
Bstr formatted(double number, const wchar_t* format);

/// A number in digits, never with an exponent. Locale and errors as above.
Bstr decimalText(double number);

/// Letters changed by the user's locale; everything else stays. The length stays too.
Text upperCased(TextView text);
Text lowerCased(TextView text);

}  // namespace vorla
