// SPDX-License-Identifier: MIT
#include "platform/render/ParticleLight.h"

#include "platform/image/LightProbe.h"
#include "platform/render/Lighting.h"
#include "platform/render/MaterialBinding.h"

#include <glm/common.hpp>
#include <glm/exponential.hpp>
#include <glm/geometric.hpp>
#include <glm/trigonometric.hpp>

#include <algorithm>
#include <cmath>

namespace zelvo::render {
namespace {

using scene::SCNLightType;

constexpr float kScattered = 0.25f; ///< share of a lamp's light that goes to the camera
constexpr float kDarkest = 0.3f;    ///< a cloud is seen even without a lamp

/// 0 to 1: how far inside the cone of a spot.
float inCone(const PlacedLight& placed, const glm::vec3& toLamp) {
    const double outer = glm::radians(placed.light->spotOuterAngle) / 2;
    const auto edge = static_cast<float>(std::cos(outer));
    return glm::smoothstep(edge, 1.0f, glm::dot(placed.direction, -toLamp));
}

glm::vec3 lightOf(const PlacedLight& placed, const glm::vec3& place) {
    const glm::vec3 full = radiance(*placed.light);
    switch (placed.light->type) {
    case SCNLightType::ambient:
        return glm::vec3(0); // it is everywhere
    case SCNLightType::directional:
        return full * kScattered;
    case SCNLightType::omni:
    case SCNLightType::spot:
        break;
    }
    const glm::vec3 way = placed.position - place;
    const float distance = std::max(glm::length(way), 1.0f);
    const float share =
        placed.light->type == SCNLightType::spot ? inCone(placed, way / distance) : 1.0f;
    return full * (share * kScattered / (distance * distance));
}

} // namespace

ParticleLight::ParticleLight(const scene::SCNScene& scene, std::span<const PlacedLight> lights)
    : lamps(lights)
    , everywhere(0) {
    for (const PlacedLight& placed : lights) {
        if (placed.light->type == SCNLightType::ambient)
            everywhere += radiance(*placed.light);
    }
    if (const image::ImagePtr picture = scene.lightingEnvironment.image();
        picture && picture->lightProbe)
        everywhere += glm::max(picture->lightProbe->irradiance[0], glm::vec3(0)) *
                      scene.lightingEnvironment.intensity;
    if (const image::Color* color = std::get_if<image::Color>(&scene.background.contents))
        everywhere += linearColor(*color);
}

glm::vec3 ParticleLight::at(const glm::vec3& place) const {
    glm::vec3 sum = everywhere;
    for (const PlacedLight& placed : lamps) {
        sum += lightOf(placed, place);
    }
    const float most = std::max({sum.r, sum.g, sum.b, 1e-6f});
    constexpr float kEncoding = 1 / 2.2f;
    return glm::pow(sum / most, glm::vec3(kEncoding)) *
           std::clamp(std::pow(most, kEncoding), kDarkest, 1.0f);
}

} // namespace zelvo::render
