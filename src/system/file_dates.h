// The three dates of a file or folder, in local time.
#pragma once

#include "frame/contract/enumerations.h"
#include "frame/values/scalars.h"
#include "frame/values/text.h"

namespace vorla {

/// One date of a file or folder, to the second. Error 53 when it cannot be read, 5 for an unknown kind of
/// date or a date that no calendar has.
Date fileDate(TextView path, eFileDateType which);

/// Sets one date of a file or folder and leaves the other two. Errors as above.
void setFileDate(TextView path, eFileDateType which, Date date);

}  // namespace vorla
