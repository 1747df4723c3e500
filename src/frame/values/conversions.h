// Conversions between automation types by the automation runtime's rules. Failures are run-time errors.
#pragma once

#include <optional>

#include "frame/values/runtime_error.h"
#include "frame/values/variant.h"
#include "frame/values/winapi.h"

namespace vorla {

/// The size of a value of this type in bytes; 0 for a type without values.
std::size_t sizeOfValue(VARTYPE type) noexcept;

/// The run-time number of a failure code; 440, automation error, for a code without one.
std::uint16_t errorNumberOf(HRESULT failure) noexcept;

/// The automation runtime's conversion. An object is converted by its default property, as by plainValue();
/// one that leads to no value is a type mismatch. The source stays unchanged unless it is also the result.
HRESULT changeType(VARIANT& result, const VARIANT& source, LCID locale, USHORT flags, VARTYPE type);

/// The automation runtime's copy. It does not change its source, although its declaration does not say so.
inline HRESULT copyValue(VARIANT& result, const VARIANT& source) {
    return VariantCopyInd(&result, const_cast<VARIANT*>(&source));
}

/// Throws the RuntimeError of a failure code, or std::bad_alloc.
[[noreturn]] void throwFailure(HRESULT failure);

/// Does the same if the result is a failure.
inline void throwIfFailed(HRESULT result) {
    if (FAILED(result)) throwFailure(result);
}

/// The value of an object: its default property, or if that is an object, the default property of that
/// object, and so on. Any other value is returned unchanged. Errors: 91 for Nothing, 438 for an object
/// without a default property and after eight objects, or the object's own number.
Variant plainValue(VariantView value);

/// The value converted to a type by the user's locale; an object by its default property. Doubles become
/// integers by rounding to nearest, ties to even. Errors: 94 for Null, 13 for a value that cannot be
/// converted, 6 for one that does not fit.
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

/// A host's colour as 32 bits, with a sign or without: 0x8000000F and -2147483633 are the same colour.
/// Errors: 6 for a number with more bits, and as converted().
std::int32_t colourIn(VariantView value);

/// A value as text, valid as long as the value and this object live: a string is read in place, anything else
/// is converted once, by the user's locale. Errors: 94 for Null, 13 for a value without text, 91 for Nothing,
/// 438 for an object without a default property.
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

/// Whether members treat the type as an amount: 16-bit and 32-bit integer, single, double, currency, date.
bool isAmountType(VARTYPE type) noexcept;

/// An amount as text, with a point as decimal separator whatever the system uses; a date in the system's
/// short form.
Bstr numberToInvariantText(VariantView number);

/// Whether the text is a number by the user's locale: its decimal and grouping signs, surrounding
/// blanks, a currency sign, parentheses or a trailing minus for a negative one.
bool isNumeric(TextView text);

/// The number in the text by the same rules; empty if the text is not a number.
std::optional<double> numberIn(TextView text);

/// A number or date through a format, by the user's locale. Do not pass a text: some systems write all digits
/// of a numeric text into a buffer for 256.
Bstr formattedValue(VariantView value, const wchar_t* format);

/// A numeric text rounded to a whole number, halves away from zero as formats round: digits, perhaps after
/// "-", never an exponent. Zeros follow the first 15 digits.
Text roundedNumber(TextView numeric);

/// A numeric text in the general form of the user's locale, with an exponent from 10^15 on.
Text generalNumber(TextView numeric);

/// A number through a format: a pattern or the name of one of the system's formats. Locale: the user's.
/// Error 6 for infinity, for NaN and for a number of more than 28 digits.
Bstr formatted(double number, const wchar_t* format);

/// The number in digits, never with an exponent. Locale and errors as above.
Bstr decimalText(double number);

/// The text with its letters in the other case, by the user's locale. The length stays the same.
Text upperCased(TextView text);
Text lowerCased(TextView text);

}  // namespace vorla
