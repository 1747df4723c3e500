// Questions about the host's controls and forms.
#pragma once

#include <cstdint>

#include "frame/host/host_reference.h"
#include "frame/values/variant.h"

namespace vorla {

/// The kinds of call by the numbers that hosts use.
inline constexpr std::int16_t callMethod = 1, callPropertyGet = 2;

/// Whether a call of the named member without arguments succeeds. The member is really called. End on error:
/// false.
bool ProprieteExiste(const HostObject& Objet, TextView Propriete, std::int16_t TypeAppel);

/// The scale mode of the control's container; 1 (twips) when it has none. End on error: 0, for example for a
/// control without `Container`.
std::int16_t ScaleModeConteneur(const HostObject& Ctl);

/// The control's container. End on error: Nothing, for example for a container without `ScaleMode`.
HostObject ObjetConteneur(const HostObject& Ctl);

/// Whether the collection of loaded forms contains a form with this window handle (a 32-bit integer) or with
/// exactly this name (a string). A value of another type, a 16-bit integer included, matches no form.
/// Unguarded: a failure of the host reaches the caller.
bool FormChargee(VariantView NomOuHwnd, const HostObject& Formes);

}  // namespace vorla
