#include "system/file_sizes.h"

#include <cmath>
#include <iterator>

#include "frame/values/runtime_error.h"

namespace vorla {
namespace {

constexpr TextView units[] = {L"octet(s)", L"Ko", L"Mo", L"Go", L"To"};
constexpr double step = 1024;

Text numberText(double number, bool shortForm, const SizeFormats& formats) {
    if (std::trunc(number) == number) return formats.whole(number);
    return shortForm ? formats.brief(number) : formats.standard(number);
}

}  // namespace

Text sizeText(double bytes, bool shortForm, const SizeFormats& formats) {
    if (!std::isfinite(bytes)) throw RuntimeError(ErrorNumber::overflow);
    double number = bytes;
    auto unit = std::begin(units);
    for (; number > step && unit + 1 != std::end(units); ++unit) number /= step;

    Text result = numberText(number, shortForm, formats) + L" " + Text(*unit);
    if (!shortForm && bytes > step) result += L"   (" + Text(trimmed(formats.grouped(bytes))) + L" octets)";
    return result;
}

}  // namespace vorla
