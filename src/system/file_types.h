// Which kind of content a file's extension announces.
#pragma once

#include "frame/contract/enumerations.h"
#include "frame/values/text.h"

namespace vorla {

/// The kind of a lower-case extension without its point; `eftOther` for one that no list holds and for
/// none. `eftCD` is never the answer.
eFiletype typeOfExtension(TextView extension);

}  // namespace vorla
