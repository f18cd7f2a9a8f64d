// SPDX-License-Identifier: MIT
#pragma once

#include "platform/scene/SCNNode.h"
#include "platform/scene/Timing.h"
#include "stage/Nodes.h"

#include <glm/vec3.hpp>

// Resets the stage to its home pose: position, rotation, opacity and scale of every level that a
// performance moves. The levels with the user's layout (positionNode, orientationRotationNode,
// rotXNode, rotYNode, rotZNode) do not change.

namespace zelvo::actions {

/// The place of a letter in its text. A letter without a place is a programming error.
[[nodiscard]] glm::vec3 placeOf(const content::CharNode& letter);

/// How fast things return; at once by default.
struct Homecoming {
    scene::TimingFunction timing{}; ///< of each move; empty means linear
    double duration = 0;            ///< seconds
};

enum class CameraHandles {
    leave,  ///< keep the rotation from the pan gesture
    include ///< reset them with the rest of the camera rig
};

/// Ends all actions and animations of a scene node and moves it to the target, without rotation,
/// opaque and with scale 1.
void resetSceneNode(scene::SCNNode& node, const glm::vec3& target, const Homecoming& how);

/// Moves letters, if there are any, to their places in the text, and the performance levels of the
/// rig to 0.
void resetRig(node::Node& node, const Homecoming& how);

/// Resets the media holder, the four content nodes and the camera rig.
void resetStage(const stage::Nodes& nodes, CameraHandles handles, const Homecoming& how);

/// Moves the four content nodes so far behind the camera that the distance fade hides them.
void parkNodes(const stage::Nodes& nodes);

/// The opening animation: the content flies from far behind the camera to its place.
void playOpeningFlyIn(const stage::Nodes& nodes);

} // namespace zelvo::actions
