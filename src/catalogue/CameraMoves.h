// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace zelvo::actions {
class ActionController;
}

// The camera moves of tab CAM that are over by themselves, each recorded under a title. The rest of
// the catalogue moves what is on stage; these shake who looks at it.

namespace zelvo::catalogue {

/// Heavy at first, with shocks that come back weaker. `duration` sets its width, not its 5.5
/// seconds. Drawn now and kept for replays.
void quakeCam(actions::ActionController& controller, double duration, std::string_view title);

/// A leap ahead and a slow return. Drawn now and kept for replays.
void shortZoomWiggle(
    actions::ActionController& controller, double duration, std::string_view title);

/// Four seconds of rough air, drawn anew in each replay.
void turbulence(actions::ActionController& controller, std::string_view title);

} // namespace zelvo::catalogue
