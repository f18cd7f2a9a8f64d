// SPDX-License-Identifier: MIT
#include "look/ShaderNode.h"

#include "look/FlowingNoise.h"
#include "platform/image/reading/ImageNamed.h"

namespace zelvo::look {

ShaderNode::ShaderNode()
    : plane(std::make_shared<scene::SCNTorus>(600, 600))
    , material(std::make_shared<scene::SCNMaterial>()) {
    geometry = plane;
    plane->materials = {material};
    position = glm::vec3(0, 0, -2000);
    material->lightingModelName = scene::SCNLightingModel::physicallyBased;
    material->isDoubleSided = false;
    material->diffuse.setImage(image::requiredImage("QX_Noise_04.jpg"));
    material->emission.setImage(image::requiredImage("QX_NoiseNormal_05.jpg"));
    material->fillMode = scene::SCNFillMode::lines;
    for (scene::SCNMaterialProperty* slot : material->allProperties()) {
        slot->wrapS = scene::SCNWrapMode::repeat;
        slot->wrapT = scene::SCNWrapMode::repeat;
    }
    material->shaderModifiers[scene::SCNShaderModifierEntryPoint::surface] =
        flowingNoise(Flow::backwards);
    material->blendMode = scene::SCNBlendMode::multiply;
}

} // namespace zelvo::look
