// VorlaDivers: searches in lists and trees, keyboard filters, helpers on controls.
#pragma once

namespace vorla {

/// Published empty until its members are built.
class VorlaDivers {};

}  // namespace vorla
