// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/JsonObject.h"
#include "platform/scene/SCNNode.h"

namespace zelvo::scene {

/// Adds the systems in "particles" of a scene file to the node. Each entry has the keys of a
/// particle file.
void readParticles(foundation::JsonObject& object, SCNNode& node, foundation::Problems& problems);

} // namespace zelvo::scene
