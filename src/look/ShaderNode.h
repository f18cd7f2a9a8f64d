// SPDX-License-Identifier: MIT
#pragma once

#include "platform/scene/SCNNode.h"
#include "platform/scene/SCNShapes.h"

namespace zelvo::look {

/// A wire torus far behind the stage that carries the flowing noise backwards. Nothing places it
/// yet.
class ShaderNode final : public scene::SCNNode {
public:
    ShaderNode();

    const std::shared_ptr<scene::SCNTorus> plane;
    const scene::SCNMaterialPtr material;
};

/// Nothing makes one yet.
class ModifierTest {};

} // namespace zelvo::look
