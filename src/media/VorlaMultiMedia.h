// VorlaMultiMedia: media playback, audio CDs and the mixer.
#pragma once

namespace vorla {

/// Published empty until its members are built.
class VorlaMultiMedia {};

}  // namespace vorla
