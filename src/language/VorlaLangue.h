// VorlaLangue: language files and the translation of forms.
#pragma once

namespace vorla {

/// Published empty until its members are built.
class VorlaLangue {};

}  // namespace vorla
