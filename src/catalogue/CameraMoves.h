// SPDX-License-Identifier: MIT
#pragma once

#include "catalogue/PressContext.h"

#include <string_view>

// The camera moves of tab CAM that are over by themselves, each recorded under a title. The rest of
// the catalogue moves what is on stage; these shake who looks at it.

namespace zelvo::catalogue {

/// Heavy at first, with shocks that come back weaker. The speed sets its width, not its 5.5
/// seconds. Drawn now and kept for replays.
void quakeCam(const PressContext& context, std::string_view title);

/// A leap ahead and a slow return. Drawn now and kept for replays.
void shortZoomWiggle(const PressContext& context, std::string_view title);

/// Four seconds of rough air at every speed, drawn anew in each replay.
void turbulence(const PressContext& context, std::string_view title);

} // namespace zelvo::catalogue
