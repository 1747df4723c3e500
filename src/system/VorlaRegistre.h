// VorlaRegistre: the registry.
#pragma once

namespace vorla {

/// Published empty until its members are built.
class VorlaRegistre {};

}  // namespace vorla
