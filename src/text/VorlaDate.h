// VorlaDate: date conversion and dates in words.
#pragma once

namespace vorla {

/// Published empty until its members are built.
class VorlaDate {};

}  // namespace vorla
