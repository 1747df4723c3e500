#include "text/bank_key.h"

#include <algorithm>

#include "frame/values/leading_number.h"
#include "frame/values/rounding.h"
#include "text/keys.h"

namespace vorla {
namespace {

wchar_t digitOf(wchar_t character) {
    const auto code = static_cast<std::uint32_t>(character);
    const auto digit = [](std::uint32_t value) { return static_cast<wchar_t>(L'0' + value % 10); };
    if (code > 82) return digit(code - 81);
    if (code > 73) return digit(code - 73);
    // Counted from 64. Ten is added so that the signs before "A" do not become negative.
    if (code > 57) return digit(code - 64 + 10);
    return character;
}

std::int32_t modulo97(double dividend) { return roundedToInt32(dividend) % 97; }

// The remainder of `before` times `shift` plus the number that `code` begins with.
std::int32_t continued(std::int32_t before, std::int32_t shift, TextView code) {
    return modulo97(static_cast<double>(before * shift) + leadingNumber(code));
}

// The next whole number, maybe with a zero in front.
void increase(Text& digits) {
    digits.insert(0, 1, L'0');
    const auto place = digits.find_last_not_of(L'9');
    ++digits[place];
    std::fill(digits.begin() + static_cast<std::ptrdiff_t>(place) + 1, digits.end(), L'0');
}

void dropDecimals(Text& digits, std::size_t count) {
    // With more decimals than digits there are zeros between them and the point.
    const auto first = digits.size() < count ? Text::npos : digits.size() - count;
    const bool up = first != Text::npos && digits[first] >= L'5';
    digits.resize(first == Text::npos ? 0 : first);
    if (up) increase(digits);
}

}  // namespace

Text accountDigits(TextView account) {
    Text digits(account);
    std::transform(digits.begin(), digits.end(), digits.begin(), digitOf);
    return digits;
}

Text wholeAccount(const ReadNumber& number) {
    constexpr std::int16_t width = 11;
    Text digits = number.digits;
    if (number.zeros >= 0)
        digits.append(static_cast<std::size_t>(number.zeros), L'0');
    else
        dropDecimals(digits, static_cast<std::size_t>(-number.zeros));
    digits.erase(0, digits.find_first_not_of(L'0'));
    if (number.isNegative) digits.insert(0, 1, L'-');
    return zeroFilled(digits, width).text();
}

std::int32_t bankRemainder(double bank, TextView branch, TextView account) {
    const auto first = account.substr(0, 6);
    const auto last = account.substr(account.size() - std::min<std::size_t>(5, account.size()));
    auto remainder = modulo97(bank);
    remainder = continued(remainder, 100'000, branch);
    remainder = continued(remainder, 1'000'000, first);
    return continued(remainder, 100'000, last);
}

std::int16_t bankKey(std::int32_t remainder) {
    if (remainder == 0) return 0;
    return static_cast<std::int16_t>((97 - remainder) * 100 % 97);
}

bool bankKeyFits(std::int32_t remainder, TextView key) {
    return remainder == 0 || continued(remainder, 100, key) == 0;
}

}  // namespace vorla
