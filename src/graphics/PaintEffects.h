// PaintEffects: painting disabled-looking and transparent images.
#pragma once

namespace vorla {

/// Published empty until its members are built.
class PaintEffects {};

}  // namespace vorla
