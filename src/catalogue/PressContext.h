// SPDX-License-Identifier: MIT
#pragma once

#include "node/Node.h"

#include <vector>

namespace zelvo::actions {
class ActionController;
}

namespace zelvo::catalogue {

/// What a press or a release needs. Made anew each time: by the window from the user's choices, by
/// the performer from a cue.
struct PressContext {
    actions::ActionController& controller; ///< records the action on its stage
    std::vector<node::NodePtr> affectedNodes;
    double animationFactor = 0; ///< seconds: the base duration at the speed of this press
};

} // namespace zelvo::catalogue
