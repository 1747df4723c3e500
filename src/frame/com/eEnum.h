// eEnum: carries the public enumerations and records.
#pragma once

namespace vorla {

/// It has no members of its own.
class eEnum {};

}  // namespace vorla
