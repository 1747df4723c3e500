// The decimal sign of a typed or stored amount.
#pragma once

#include "frame/values/joined.h"

namespace vorla {

/// `amount` with its first character that is neither a digit nor "-" replaced by `separator`. Later ones
/// stay. The result views its argument.
Joined withSystemSign(TextView amount, wchar_t separator);

/// `amount` with the first `separator` in it replaced by a point. The result views its argument.
Joined withPoint(TextView amount, wchar_t separator);

}  // namespace vorla
