// VorlaGraphique: form shapes and effects, pictures, colours, screen sizes, form positions.
#pragma once

namespace vorla {

/// Published empty until its members are built.
class VorlaGraphique {};

}  // namespace vorla
