#include "media/times.h"

#include "frame/values/leading_number.h"
#include "frame/values/rounding.h"

namespace vorla::media {

std::int32_t wholeSeconds(std::int32_t milliseconds) { return roundedToInt32(milliseconds / 1000.0); }

std::int32_t integerIn(TextView time) {
    if (time.empty() || time.find_first_not_of(L"0123456789") != TextView::npos)
        throw RuntimeError(ErrorNumber::typeMismatch);
    return roundedToInt32(leadingNumber(time));
}

}  // namespace vorla::media
