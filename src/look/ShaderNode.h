// SPDX-License-Identifier: MIT
#pragma once

#include "platform/scene/SCNNode.h"
#include "platform/scene/SCNShapes.h"

namespace zelvo::look {

/// A wire torus far behind the stage with the flowing noise, running backwards. Not used yet.
class ShaderNode final : public scene::SCNNode {
public:
    ShaderNode();

    const std::shared_ptr<scene::SCNTorus> plane;
    const scene::SCNMaterialPtr material;
};

/// Not used yet.
class ModifierTest {};

} // namespace zelvo::look
