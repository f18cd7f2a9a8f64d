// SPDX-License-Identifier: MIT
#pragma once

#include "platform/scene/JsonReader.h"
#include "platform/scene/SCNNode.h"

namespace zelvo::scene {

/// Adds the systems of a scene file's "particles" to the node. Each entry holds the keys of a
/// particle file.
void readParticles(JsonObject& object, SCNNode& node, JsonFault& fault);

} // namespace zelvo::scene
