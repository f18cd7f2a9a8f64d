// SPDX-License-Identifier: MIT
#include "platform/render/Lighting.h"

#include "platform/render/BoxFaces.h"
#include "platform/render/MaterialBinding.h"

#include <fmt/format.h>
#include <glm/trigonometric.hpp>

#include <algorithm>
#include <cmath>
#include <optional>

namespace zelvo::render {
namespace {

using scene::SCNLight;
using scene::SCNLightType;

constexpr float kNominalIntensity = 1000;

/// Index of the light's shadow view, or the number of views if it has none.
std::size_t viewOf(std::span<const ShadowView> shadows, std::uint32_t light) {
    std::size_t i = 0;
    while (i < shadows.size() && shadows[i].light != light) {
        ++i;
    }
    return i;
}

/// The shader computes an omni light with a shadow as a spot without a cone.
SCNLightType computedAs(SCNLightType type, bool hasShadow) {
    return type == SCNLightType::omni && hasShadow ? SCNLightType::spot : type;
}

/// The order that the shader expects: directional, omni, spot; in each kind, first those with
/// shadows.
int rank(SCNLightType type, bool hasShadow) {
    const SCNLightType computed = computedAs(type, hasShadow);
    const int kind = computed == SCNLightType::directional ? 0
                     : computed == SCNLightType::omni      ? 1
                                                           : 2;
    return kind * 2 + (hasShadow ? 0 : 1);
}

void writeLight(LightBlock& block, std::size_t i, const PlacedLight& placed) {
    const SCNLight& light = *placed.light;
    const bool isDirectional = light.type == SCNLightType::directional;
    block.lightPosition.at(i) = glm::vec4(isDirectional ? -placed.direction : placed.position, 1);
    block.lightColor.at(i) = glm::vec4(radiance(light), 1); // a cone that holds all directions
    if (light.type != SCNLightType::spot)
        return;
    // The angles are those of the whole cone. The shader uses a smoothstep from the outer cosine to
    // the inner one.
    const double outer = std::cos(glm::radians(std::clamp(light.spotOuterAngle, 1.0, 359.0)) * 0.5);
    const double inner =
        std::cos(glm::radians(std::clamp(light.spotInnerAngle, 0.0, light.spotOuterAngle)) * 0.5);
    const double scale = 1.0 / std::max(inner - outer, 1e-4);
    block.lightAxis.at(i) = glm::vec4(placed.direction, static_cast<float>(scale));
    block.lightColor.at(i).w = static_cast<float>(-outer * scale);
}

void writeShadow(LightBlock& block, std::size_t i, const ShadowView& view, const SCNLight& light) {
    block.lightPosition.at(i).w = view.nearest;
    block.lightShadow.at(i) = {
        light.shadowColor.alpha, view.leastRadius, view.softness, view.receiverShift};
    block.shadowBounds.at(i) = view.bounds;
    block.shadowMatrix.at(i) = view.toTexture;
}

/// Of a flat element with known side. Not numbers if the node has no size.
std::optional<glm::vec4> planeOf(const VisibleNode& node, std::size_t element) {
    const geometry::MeshElement& flat = node.geometry->mesh().elements[element];
    if (flat.facing == glm::vec3(0) || flat.depth > 0 || flat.indexCount == 0)
        return std::nullopt;
    return sideOf(node, flat);
}

bool holds(LightBits bits, std::size_t light) {
    return light < 64 && (bits >> light & 1) != 0;
}

/// Writes a light to its place in the set, and its shadow if it has a view.
void addLight(
    LightSet& set,
    std::size_t place,
    const PlacedLight& placed,
    std::size_t view,
    std::span<const ShadowView> shadows) {
    LightCounts& counts = set.counts;
    const bool hasShadow = view < shadows.size();
    writeLight(set.block, place, placed);
    if (hasShadow) {
        writeShadow(set.block, place, shadows[view], *placed.light);
        const int map = counts.directionalShadows + counts.spotShadows;
        set.shadowViews.at(static_cast<std::size_t>(map)) = static_cast<std::uint32_t>(view);
    }
    const SCNLightType type = computedAs(placed.light->type, hasShadow);
    if (type == SCNLightType::omni) {
        ++counts.omni;
        return;
    }
    const bool isSpot = type == SCNLightType::spot;
    ++(isSpot ? counts.spot : counts.directional);
    (isSpot ? counts.spotShadows : counts.directionalShadows) += hasShadow ? 1 : 0;
}

} // namespace

glm::vec3 radiance(const SCNLight& light) {
    return linearColor(light.color) *
           static_cast<float>(light.intensity.presented() * light.gain / kNominalIntensity);
}

std::uint32_t LightCounts::key() const {
    return static_cast<std::uint32_t>(
        directional | directionalShadows << 4 | omni << 7 | spot << 11 | spotShadows << 15);
}

std::vector<std::string> LightCounts::defines() const {
    return {
        fmt::format("DIRECTIONAL_COUNT {}", directional),
        fmt::format("DIRECTIONAL_SHADOWS {}", directionalShadows),
        fmt::format("OMNI_COUNT {}", omni),
        fmt::format("SPOT_COUNT {}", spot),
        fmt::format("SPOT_SHADOWS {}", spotShadows)};
}

bool isTurnedFrom(const glm::vec3& place, const VisibleNode& node, std::size_t element) {
    const std::optional<glm::vec4> plane = planeOf(node, element);
    return plane && glm::dot(*plane, glm::vec4(place, 1)) <= 0;
}

LightBits rearLightsBehind(
    std::span<const PlacedLight> lights, const VisibleNode& node, std::size_t element) {
    const std::optional<glm::vec4> plane = planeOf(node, element);
    if (!plane)
        return 0;
    LightBits rear = 0;
    for (std::size_t i = 0; i < std::min<std::size_t>(lights.size(), 64); ++i) {
        const SCNLight& light = *lights[i].light;
        const bool isDirectional = light.type == SCNLightType::directional;
        const glm::vec4 place =
            isDirectional ? glm::vec4(-lights[i].direction, 0) : glm::vec4(lights[i].position, 1);
        const bool shinesOnIt = (light.categoryBitMask & node.categoryBitMask) != 0;
        if (light.type == SCNLightType::ambient || !shinesOnIt || place.z >= 0)
            continue;
        if (!(glm::dot(*plane, place) <= 0))
            return 0;
        rear |= LightBits{1} << i;
    }
    return rear;
}

LightSet makeLightSet(
    std::span<const PlacedLight> lights,
    std::span<const ShadowView> shadows,
    std::uint32_t mask,
    LightBits leftOut,
    LightBits unshaded) {
    LightSet set;
    set.mask = mask;
    std::array<std::uint32_t, kMaxLights> chosen{};
    std::size_t count = 0;
    for (std::uint32_t i = 0; i < lights.size(); ++i) {
        const SCNLight& light = *lights[i].light;
        if ((light.categoryBitMask & mask) == 0)
            continue;
        if (light.type == SCNLightType::ambient) {
            set.block.ambient += glm::vec4(radiance(light), 0);
            continue;
        }
        set.hasLamps = set.hasLamps || light.gain == 1;
        if (!holds(leftOut, i) && count < chosen.size())
            chosen.at(count++) = i;
    }
    const auto shadowOf = [&](std::uint32_t i) {
        return holds(unshaded, i) ? shadows.size() : viewOf(shadows, i);
    };
    const auto rankOf = [&](std::uint32_t i) {
        return rank(lights[i].light->type, shadowOf(i) < shadows.size());
    };
    std::stable_sort(
        chosen.begin(), chosen.begin() + static_cast<std::ptrdiff_t>(count), [&](auto a, auto b) {
            return rankOf(a) < rankOf(b);
        });
    for (std::size_t i = 0; i < count; ++i) {
        addLight(set, i, lights[chosen.at(i)], shadowOf(chosen.at(i)), shadows);
    }
    return set;
}

} // namespace zelvo::render
