// SPDX-License-Identifier: MIT
#pragma once

#include "node/Node.h"

#include <vector>

namespace zelvo::actions {
class ActionController;
}

namespace zelvo::catalogue {

/// What a press or a release works with, made anew for each of them by whoever presses: the window
/// from what the user has chosen, the performer from a cue.
struct PressContext {
    actions::ActionController& controller; ///< takes the record; its stage is what is played on
    std::vector<core::NodePtr> affectedNodes;
    double animationFactor = 0; ///< seconds: the base duration, at the speed of this press
};

} // namespace zelvo::catalogue
