// SPDX-License-Identifier: MIT
#include "platform/render/Lighting.h"

#include "platform/render/MaterialBinding.h"

#include <fmt/format.h>
#include <glm/geometric.hpp>
#include <glm/matrix.hpp>
#include <glm/trigonometric.hpp>

#include <algorithm>
#include <cmath>
#include <optional>

namespace zelvo::render {
namespace {

using scene::SCNLight;
using scene::SCNLightType;

constexpr float kNominalIntensity = 1000;
constexpr float kMinHalfExtent = 500; ///< scene units, for the map of a directional light
/// the map grows in steps of 10 %, so that shadow edges do not crawl
constexpr float kExtentStep = 1.1f;
constexpr int kMinMap = 128;
constexpr int kMaxMap = 4096;
/// texels between the middle and the outermost one that the shader reads
constexpr float kTapReach = 2;

/// The axes (right, up, backwards) of an eye that looks along the direction.
glm::mat3 axesLooking(const glm::vec3& direction) {
    const glm::vec3 up = std::abs(direction.y) > 0.99f ? glm::vec3(0, 0, 1) : glm::vec3(0, 1, 0);
    const glm::vec3 right = glm::normalize(glm::cross(direction, up));
    return {right, glm::cross(right, direction), -direction};
}

glm::mat4 viewFrom(const glm::mat3& axes, const glm::vec3& position) {
    glm::mat4 placed(axes);
    placed[3] = glm::vec4(position, 1);
    return glm::inverse(placed);
}

/// From clip space to texture coordinates. Row 0 of a map is the top row.
glm::mat4 clipToTexture() {
    glm::mat4 m(1);
    m[0][0] = 0.5f;
    m[1][1] = -0.5f;
    m[3] = {0.5f, 0.5f, 0, 1};
    return m;
}

std::array<glm::vec3, 8> cornersOf(const geometry::Box& box) {
    std::array<glm::vec3, 8> corners{};
    for (unsigned i = 0; i < corners.size(); ++i) {
        corners.at(i) = {
            (i & 1U) != 0 ? box.max.x : box.min.x,
            (i & 2U) != 0 ? box.max.y : box.min.y,
            (i & 4U) != 0 ? box.max.z : box.min.z};
    }
    return corners;
}

/// The box around all casters, measured along the given axes.
geometry::Box castersIn(const glm::mat3& axes, const SCNLight& light, const Snapshot& snapshot) {
    geometry::Box result;
    for (const VisibleNode& node : snapshot.nodes()) {
        if (!casts(node, light))
            continue;
        for (const glm::vec3& corner : cornersOf(node.geometry->boundingBox())) {
            result.include(glm::vec3(node.world * glm::vec4(corner, 1)) * axes);
        }
    }
    return result;
}

float steppedUp(float extent) {
    return std::pow(kExtentStep, std::ceil(std::log(extent) / std::log(kExtentStep)));
}

void setTaps(ShadowView& view, const SCNLight& light) {
    const float softness = std::max(light.shadowRadius, 1.0f) / kTapReach;
    const float size = static_cast<float>(light.shadowMapSize) / softness;
    view.mapSize = std::clamp(static_cast<int>(std::lround(size)), kMinMap, kMaxMap);
    view.tapSpacing = 1.0f / static_cast<float>(view.mapSize);
}

void fitDirectional(ShadowView& view, const PlacedLight& placed, const Snapshot& snapshot) {
    const SCNLight& light = *placed.light;
    const glm::mat3 axes = axesLooking(placed.direction);
    geometry::Box box = castersIn(axes, light, snapshot);
    if (box.isEmpty())
        box = {glm::vec3(0), glm::vec3(0)};
    const glm::vec3 half = (box.max - box.min) * 0.5f;
    const float margin = 1.05f; // room for the soft edge
    const float extent =
        std::max(kMinHalfExtent, steppedUp(std::max({half.x, half.y, 1.0f}) * margin));
    const float texel = 2 * extent / static_cast<float>(view.mapSize);
    const glm::vec3 middle = (box.max + box.min) * 0.5f;
    const glm::vec3 eye(
        std::round(middle.x / texel) * texel, std::round(middle.y / texel) * texel, box.max.z + 1);
    view.viewProjection = reversedOrthographic(extent, extent, 0, box.max.z - box.min.z + 2) *
                          viewFrom(axes, axes * eye);
    view.receiverShift = texel * (kTapReach + 1);
}

void fitSpot(ShadowView& view, const PlacedLight& placed, const Snapshot& snapshot) {
    const SCNLight& light = *placed.light;
    const glm::mat3 axes = axesLooking(placed.direction);
    const auto angle =
        static_cast<float>(glm::radians(std::clamp(light.spotOuterAngle, 1.0, 170.0)));
    view.viewProjection =
        reversedPerspective(
            angle, 1, static_cast<float>(light.zNear), static_cast<float>(light.zFar)) *
        viewFrom(axes, placed.position);
    const geometry::Box box = castersIn(axes, light, snapshot);
    const float distance =
        box.isEmpty() ? 1.0f : std::max(1.0f, glm::dot(placed.position, axes[2]) - box.min.z);
    view.receiverShift = (kTapReach + 1) * 2.0f * distance * std::tan(angle * 0.5f) /
                         static_cast<float>(view.mapSize);
}

/// Limits shadow lookups to a box in the map. Without a box (a caster reaches behind the light),
/// the whole map is used.
void setBounds(ShadowView& view, const std::optional<geometry::Box>& box) {
    view.bounds = {0, 0, 1, 1};
    view.nearest = 1;
    if (!box)
        return;
    if (box->isEmpty()) {
        view.bounds = glm::vec4(0);
        return;
    }
    const float reach = (kTapReach + 1) / static_cast<float>(view.mapSize);
    view.bounds = glm::clamp(
        glm::vec4(box->min.x - reach, box->min.y - reach, box->max.x + reach, box->max.y + reach),
        0.0f,
        1.0f);
    view.nearest = std::min(box->max.z, 1.0f);
}

/// The box of a caster in the map; nothing if a part of it is behind the light.
std::optional<geometry::Box> boxInMap(const VisibleNode& caster, const ShadowView& view) {
    const glm::mat4 toMap = view.toTexture * caster.world;
    geometry::Box box;
    for (const glm::vec3& corner : cornersOf(caster.geometry->boundingBox())) {
        const glm::vec4 point = toMap * glm::vec4(corner, 1);
        if (point.w <= 0)
            return std::nullopt;
        box.include(glm::vec3(point) / point.w);
    }
    return box;
}

/// The box of all casters in the map; nothing if a part of one is behind the light.
std::optional<geometry::Box>
castersInMap(const ShadowView& view, const SCNLight& light, const Snapshot& snapshot) {
    geometry::Box all;
    for (const VisibleNode& node : snapshot.nodes()) {
        if (!casts(node, light))
            continue;
        const std::optional<geometry::Box> box = boxInMap(node, view);
        if (!box)
            return std::nullopt;
        all.include(box->min);
        all.include(box->max);
    }
    return all;
}

bool castsShadow(const SCNLight& light) {
    const bool canCast =
        light.type == SCNLightType::directional || light.type == SCNLightType::spot;
    return light.castsShadow && canCast && light.shadowColor.alpha > 0;
}

/// Index of the light's shadow view, or the number of views if it has none.
std::size_t viewOf(std::span<const ShadowView> shadows, std::uint32_t light) {
    std::size_t i = 0;
    while (i < shadows.size() && shadows[i].light != light) {
        ++i;
    }
    return i;
}

/// The order that the shader expects: directional, omni, spot; in each kind, first those with
/// shadows.
int rank(SCNLightType type, bool hasShadow) {
    const int kind = type == SCNLightType::directional ? 0 : type == SCNLightType::omni ? 1 : 2;
    return kind * 2 + (hasShadow ? 0 : 1);
}

glm::vec3 radiance(const SCNLight& light) {
    return linearColor(light.color) *
           static_cast<float>(light.intensity.presented() / kNominalIntensity);
}

void writeLight(LightBlock& block, std::size_t i, const PlacedLight& placed) {
    const SCNLight& light = *placed.light;
    const bool isDirectional = light.type == SCNLightType::directional;
    block.lightPosition.at(i) = glm::vec4(isDirectional ? -placed.direction : placed.position, 1);
    block.lightColor.at(i) = glm::vec4(radiance(light), 0);
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
    block.lightShadow.at(i) = {light.shadowColor.alpha, view.tapSpacing, 0, view.receiverShift};
    block.shadowBounds.at(i) = view.bounds;
    block.shadowMatrix.at(i) = view.toTexture;
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
    if (placed.light->type == SCNLightType::omni) {
        ++counts.omni;
        return;
    }
    const bool isSpot = placed.light->type == SCNLightType::spot;
    ++(isSpot ? counts.spot : counts.directional);
    (isSpot ? counts.spotShadows : counts.directionalShadows) += hasShadow ? 1 : 0;
}

} // namespace

bool casts(const VisibleNode& node, const scene::SCNLight& light) {
    return node.castsShadow || (node.categoryBitMask & light.shadowCasterMask) != 0;
}

ShadowViews shadowViews(const Snapshot& snapshot) {
    ShadowViews result;
    const std::span<const PlacedLight> lights = snapshot.lights();
    for (std::uint32_t i = 0; i < lights.size() && result.count < result.views.size(); ++i) {
        if (!castsShadow(*lights[i].light))
            continue;
        ShadowView& view = result.views.at(result.count++);
        view.light = i;
        setTaps(view, *lights[i].light);
        if (lights[i].light->type == SCNLightType::directional) {
            fitDirectional(view, lights[i], snapshot);
        } else {
            fitSpot(view, lights[i], snapshot);
        }
        view.toTexture = clipToTexture() * view.viewProjection;
        setBounds(view, castersInMap(view, *lights[i].light, snapshot));
    }
    return result;
}

ShadowView boundedTo(const VisibleNode& caster, const ShadowView& view) {
    ShadowView bounded = view;
    setBounds(bounded, boxInMap(caster, view));
    return bounded;
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

LightSet makeLightSet(
    std::span<const PlacedLight> lights, std::span<const ShadowView> shadows, std::uint32_t mask) {
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
        } else if (count < chosen.size()) {
            chosen.at(count++) = i;
        }
    }
    const auto rankOf = [&](std::uint32_t i) {
        return rank(lights[i].light->type, viewOf(shadows, i) < shadows.size());
    };
    std::stable_sort(
        chosen.begin(), chosen.begin() + static_cast<std::ptrdiff_t>(count), [&](auto a, auto b) {
            return rankOf(a) < rankOf(b);
        });
    for (std::size_t i = 0; i < count; ++i) {
        addLight(set, i, lights[chosen.at(i)], viewOf(shadows, chosen.at(i)), shadows);
    }
    return set;
}

} // namespace zelvo::render
