#include "text/bank_key.h"

#include <algorithm>

#include "frame/values/leading_number.h"
#include "frame/values/rounding.h"

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

}  // namespace

Text accountDigits(TextView account) {
    Text digits(account);
    std::transform(digits.begin(), digits.end(), digits.begin(), digitOf);
    return digits;
}

std::int32_t bankRemainder(TextView bank, TextView branch, TextView formattedAccount) {
    const auto first = formattedAccount.substr(0, 6);
    const auto last =
        formattedAccount.substr(formattedAccount.size() - std::min<std::size_t>(5, formattedAccount.size()));
    auto remainder = modulo97(leadingNumber(bank));
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
