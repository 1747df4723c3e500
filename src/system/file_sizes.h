// Sizes of files as French users read them: octets, Ko, Mo, Go, To.
#pragma once

#include "frame/values/text.h"

namespace vorla {

/// How the user's system writes numbers.
class SizeFormats {
public:
    virtual Text whole(double number) const = 0;     // digits only
    virtual Text brief(double number) const = 0;     // at most two decimals
    virtual Text standard(double number) const = 0;  // grouped, two decimals
    virtual Text grouped(double number) const = 0;   // rounded, digit groups between blanks; may be padded

protected:
    ~SizeFormats() = default;
};

/// A number of bytes in words: "1,50 Ko   (1 536 octets)", or "1,5 Ko" in the short form. The unit is the
/// largest in which the value is more than 1, so 1,024 of a unit are still in that unit. Error 6 for what is
/// not a number.
Text sizeText(double bytes, bool shortForm, const SizeFormats& formats);

}  // namespace vorla
