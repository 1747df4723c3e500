// The three dates that a file or folder keeps, in local time.
#pragma once

#include "frame/contract/enumerations.h"
#include "frame/values/scalars.h"
#include "frame/values/text.h"

namespace vorla {

/// One of a file's or folder's dates, to the second. Error 53 when it cannot be read, 5 for a kind of date
/// that does not exist or a date that no calendar has.
Date fileDate(TextView path, eFileDateType which);

/// Gives a file or folder a new date and leaves the other two. Errors as above.
void setFileDate(TextView path, eFileDateType which, Date date);

}  // namespace vorla
