// SPDX-License-Identifier: MIT
#pragma once

#include "platform/scene/SCNNode.h"
#include "platform/scene/Timing.h"
#include "stage/Nodes.h"

#include <glm/vec3.hpp>

// How the stage comes home: position, rotation, opacity and size of every level that performances
// move. The levels that hold the user's layout (positionNode, orientationRotationNode, rotXNode,
// rotYNode, rotZNode) are left alone.

namespace zelvo::actions {

/// Where its text wants a letter. A letter without a place is a programming error.
[[nodiscard]] glm::vec3 placeOf(const content::CharNode& letter);

/// How fast things come home; at once by default.
struct Homecoming {
    scene::TimingFunction timing{}; ///< of each of the moves; none means linear
    double duration = 0;            ///< seconds
};

enum class CameraHandles {
    leave,  ///< where the pan gesture has turned them
    include ///< straightened with the rest of the camera rig
};

/// Ends all actions and animations of one scene node and brings it to the target, unturned, opaque
/// and at size 1.
void resetSceneNode(scene::SCNNode& node, const glm::vec3& target, const Homecoming& how);

/// The letters, if it has any, to their places in the text; then the performance levels of the rig
/// to 0.
void resetRig(core::Node& node, const Homecoming& how);

/// The media holder, the four content nodes and the camera rig.
void resetStage(const core::Nodes& nodes, CameraHandles handles, const Homecoming& how);

/// Puts the four content nodes so far behind the camera that the distance fade hides them.
void parkNodes(const core::Nodes& nodes);

/// The move with which the program opens: the content comes from far behind to its place.
void playOpeningFlyIn(const core::Nodes& nodes);

} // namespace zelvo::actions
