// SPDX-License-Identifier: MIT
#pragma once

#include "stage/Nodes.h"

#include <glm/vec2.hpp>

namespace zelvo::ui {

/// A place in the scene's view, in points from its top left corner.
struct StagePlace {
    glm::vec2 location{0};
    glm::vec2 viewSize{1};
};

/// Finds the content that a press takes:
///
///     the content in hand, wherever its shape or its frame is met, else
///     the shape that is seen at the place, else
///     a shape a few points beside it, else
///     the smallest frame around it; frames stand for hidden content, too
///
/// Null: there is nothing.
[[nodiscard]] node::NodePtr
nodeAt(const stage::Nodes& nodes, const StagePlace& place, const node::NodePtr& inHand);

} // namespace zelvo::ui
