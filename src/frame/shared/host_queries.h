// What members ask of the host's controls and forms.
#pragma once

#include <cstdint>

#include "frame/host/host_reference.h"
#include "frame/values/variant.h"

namespace vorla {

/// The kinds of call that hosts name by number.
inline constexpr std::int16_t callMethod = 1, callPropertyGet = 2;

/// Whether a call of the named member without arguments succeeds, by the given kind. The member is really
/// called. End on error: False.
bool ProprieteExiste(const HostObject& Objet, TextView Propriete, std::int16_t TypeAppel);

/// The scale mode of the control's container, 1 (twips) for one that has none. End on error: 0, so for a
/// control without `Container`.
std::int16_t ScaleModeConteneur(const HostObject& Ctl);

/// The control's container. End on error: Nothing, so for a container without `ScaleMode`.
HostObject ObjetConteneur(const HostObject& Ctl);

/// Whether the collection of loaded forms holds the one with this window handle (a 32-bit integer) or with
/// exactly this name (a string). A value of another type, a 16-bit integer too, is no form's.
/// Unguarded: a failure of the host reaches the caller.
bool FormChargee(VariantView NomOuHwnd, const HostObject& Formes);

}  // namespace vorla
