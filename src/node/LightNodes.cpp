// SPDX-License-Identifier: MIT
#include "node/LightNodes.h"

namespace zelvo::node {

DefaultSCNNodePtr LightNodes::spotLight() {
    const auto light = std::make_shared<scene::SCNLight>();
    light->type = scene::SCNLightType::spot;
    light->spotInnerAngle = 0;
    light->spotOuterAngle = 60;
    light->intensity = 1e7;
    light->categoryBitMask = 4;
    light->zFar = 10000;
    auto node = std::make_shared<DefaultSCNNode>();
    node->light = light;
    return node;
}

DefaultSCNNodePtr LightNodes::omniLight(const image::Color& color, const glm::vec3& position) {
    const auto light = std::make_shared<scene::SCNLight>();
    light->type = scene::SCNLightType::omni;
    light->shadowMode = scene::SCNShadowMode::forward;
    light->color = color;
    light->categoryBitMask = 2;
    auto node = std::make_shared<DefaultSCNNode>();
    node->light = light;
    node->position = position;
    return node;
}

} // namespace zelvo::node
