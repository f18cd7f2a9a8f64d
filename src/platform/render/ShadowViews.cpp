// SPDX-License-Identifier: MIT
#include "platform/render/ShadowViews.h"

#include "platform/render/BoxFaces.h"

#include <glm/geometric.hpp>
#include <glm/matrix.hpp>
#include <glm/trigonometric.hpp>

#include <algorithm>
#include <bit>
#include <cmath>
#include <optional>

namespace zelvo::render {
namespace {

using scene::SCNLight;
using scene::SCNLightType;

constexpr float kMinHalfExtent = 500; ///< scene units, for the map of a directional light
/// the map grows in steps of 10 %, so that shadow edges do not crawl
constexpr float kExtentStep = 1.1f;
constexpr unsigned kMinMap = 128;
constexpr float kWidestRadius = 0.03f; ///< of the soft edge, as a share of the map
/// An omni light must see all casters within such a pyramid: tangent of half its angle.
constexpr float kWidestOmni = 3;
constexpr float kNearestOmni = 4; ///< scene units

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

/// The box around all casters, measured along the given axes.
geometry::Box castersIn(const glm::mat3& axes, const SCNLight& light, const Snapshot& snapshot) {
    geometry::Box result;
    for (const VisibleNode& node : snapshot.nodes()) {
        if (!casts(node, light))
            continue;
        for (const glm::vec3& corner : cornersOf(node))
            result.include(corner * axes);
    }
    return result;
}

float steppedUp(float extent) {
    return std::pow(kExtentStep, std::ceil(std::log(extent) / std::log(kExtentStep)));
}

void setMap(ShadowView& view, const SCNLight& light, unsigned maxMap) {
    const float radius = std::max(light.shadowRadius, 1.0f);
    const auto size = static_cast<float>(light.shadowMapSize);
    view.leastRadius = std::min(radius / size, kWidestRadius);
    const auto needed = static_cast<unsigned>(std::lround(2 * size / radius));
    view.mapSize = static_cast<int>(std::bit_ceil(std::clamp(needed, kMinMap, maxMap)));
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
    const float range = box.max.z - box.min.z + 2;
    view.viewProjection =
        reversedOrthographic(extent, extent, 0, range) * viewFrom(axes, axes * eye);
    view.receiverShift = texel * kShiftTexels;
    view.softness = light.lampRadius / kSunDistance * range / (2 * extent);
}

/// What a light sees that shines from a point.
struct Pyramid {
    glm::mat3 axes{1};
    float tangent = 1; ///< of half its angle
    float zNear = 1;
    float zFar = 2;
};

void fitPyramid(
    ShadowView& view, const PlacedLight& placed, const Pyramid& pyramid, const Snapshot& snapshot) {
    const auto& axes = pyramid.axes;
    const float tangent = pyramid.tangent;
    // The map's 8 bits of depth are for the casters; receivers may lie beyond.
    const geometry::Box box = castersIn(axes, *placed.light, snapshot);
    const float place = glm::dot(placed.position, axes[2]);
    const float nearest = box.isEmpty() ? pyramid.zNear : (place - box.max.z) * 0.98f;
    const float zNear = std::max(pyramid.zNear, nearest);
    const float farthest = box.isEmpty() ? pyramid.zFar : (place - box.min.z) * 1.02f;
    const float zFar = std::max(farthest, zNear * 1.05f);
    view.viewProjection = reversedPerspective(2 * std::atan(tangent), 1, zNear, zFar) *
                          viewFrom(axes, placed.position);
    const float distance = std::max(1.0f, zFar);
    view.receiverShift = kShiftTexels * 2 * distance * tangent / static_cast<float>(view.mapSize);
    // With the distances b of the caster and r of the receiver, the edge is lampRadius (r - b) / b
    // wide at the receiver, where the map is 2 r tangent wide. The depth in the map is linear in
    // 1 / distance.
    view.softness = placed.light->lampRadius / (2 * tangent) * (zFar - zNear) / (zNear * zFar);
}

void fitSpot(ShadowView& view, const PlacedLight& placed, const Snapshot& snapshot) {
    const SCNLight& light = *placed.light;
    const auto angle =
        static_cast<float>(glm::radians(std::clamp(light.spotOuterAngle, 1.0, 170.0)));
    fitPyramid(
        view,
        placed,
        {axesLooking(placed.direction),
         std::tan(angle / 2),
         static_cast<float>(light.zNear),
         static_cast<float>(light.zFar)},
        snapshot);
}

/// The pyramid from an omni light around all its casters; nothing if it is among them.
std::optional<Pyramid> pyramidAround(const PlacedLight& placed, const Snapshot& snapshot) {
    const SCNLight& light = *placed.light;
    const geometry::Box box = castersIn(glm::mat3(1), light, snapshot);
    const glm::vec3 way = (box.min + box.max) * 0.5f - placed.position;
    if (box.isEmpty() || glm::length(way) < kNearestOmni)
        return std::nullopt;
    Pyramid result{axesLooking(glm::normalize(way)), 0, INFINITY, static_cast<float>(light.zFar)};
    for (const VisibleNode& node : snapshot.nodes()) {
        if (!casts(node, light))
            continue;
        for (const glm::vec3& corner : cornersOf(node)) {
            const glm::vec3 seen = (corner - placed.position) * result.axes;
            const float distance = -seen.z;
            if (distance < kNearestOmni)
                return std::nullopt;
            const float sideways = std::max(std::abs(seen.x), std::abs(seen.y));
            result.tangent = std::max(result.tangent, sideways / distance);
            result.zNear = std::min(result.zNear, distance);
            result.zFar = std::max(result.zFar, 2 * distance);
        }
    }
    if (result.tangent > kWidestOmni)
        return std::nullopt;
    result.tangent = steppedUp(result.tangent * kExtentStep);
    result.zNear *= 0.5f;
    return result;
}

/// False if the light can throw no shadow.
bool fit(ShadowView& view, const PlacedLight& placed, const Snapshot& snapshot) {
    switch (placed.light->type) {
    case SCNLightType::directional:
        fitDirectional(view, placed, snapshot);
        return true;
    case SCNLightType::spot:
        fitSpot(view, placed, snapshot);
        return true;
    case SCNLightType::omni:
        if (const auto pyramid = pyramidAround(placed, snapshot)) {
            fitPyramid(view, placed, *pyramid, snapshot);
            return true;
        }
        return false;
    case SCNLightType::ambient:
        return false;
    }
    return false;
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
    view.nearest = std::min(box->max.z, 1.0f);
    // The shader looks as far as the widest edge, from a point that is moved by as much.
    const float widest = std::clamp(view.softness * view.nearest, view.leastRadius, kWidestRadius);
    const float reach = 2 * widest + 4 / static_cast<float>(view.mapSize);
    view.bounds = glm::clamp(
        glm::vec4(box->min.x - reach, box->min.y - reach, box->max.x + reach, box->max.y + reach),
        0.0f,
        1.0f);
}

/// The box of a caster in the map; nothing if a part of it is behind the light.
std::optional<geometry::Box> boxInMap(const VisibleNode& caster, const ShadowView& view) {
    geometry::Box box;
    for (const glm::vec3& corner : cornersOf(caster)) {
        const glm::vec4 point = view.toTexture * glm::vec4(corner, 1);
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

} // namespace

glm::mat4 clipToTexture() {
    glm::mat4 m(1);
    m[0][0] = 0.5f;
    m[1][1] = -0.5f;
    m[3] = {0.5f, 0.5f, 0, 1};
    return m;
}

bool casts(const VisibleNode& node, const scene::SCNLight& light) {
    return node.castsShadow || (node.categoryBitMask & light.shadowCasterMask) != 0;
}

ShadowViews shadowViews(const Snapshot& snapshot, unsigned maxMap) {
    ShadowViews result;
    const std::span<const PlacedLight> lights = snapshot.lights();
    for (std::uint32_t i = 0; i < lights.size() && result.count < result.views.size(); ++i) {
        const SCNLight& light = *lights[i].light;
        if (!light.castsShadow || light.shadowColor.alpha <= 0)
            continue;
        ShadowView view{.light = i};
        setMap(view, light, maxMap);
        if (!fit(view, lights[i], snapshot))
            continue;
        view.toTexture = clipToTexture() * view.viewProjection;
        setBounds(view, castersInMap(view, light, snapshot));
        result.views.at(result.count++) = view;
    }
    return result;
}

ShadowView boundedTo(const VisibleNode& caster, const ShadowView& view) {
    ShadowView bounded = view;
    setBounds(bounded, boxInMap(caster, view));
    return bounded;
}

} // namespace zelvo::render
