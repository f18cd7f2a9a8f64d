// SPDX-License-Identifier: MIT
#include "platform/render/ShadowOnSide.h"

#include "platform/render/BoxFaces.h"

#include <glm/common.hpp>
#include <glm/geometric.hpp>
#include <glm/matrix.hpp>
#include <glm/vector_relational.hpp>

#include <algorithm>
#include <cmath>

namespace zelvo::render {
namespace {

/// The part of a node's box in which an element with a `facing` lies.
geometry::Box slabOf(const VisibleNode& node, const geometry::MeshElement& element) {
    geometry::Box slab = node.geometry->boundingBox();
    for (int axis = 0; axis < 3; ++axis) {
        if (element.facing[axis] > 0)
            slab.min[axis] = slab.max[axis] - element.depth;
        else if (element.facing[axis] < 0)
            slab.max[axis] = slab.min[axis] + element.depth;
    }
    return slab;
}

glm::vec3 wayOf(const PlacedLight& placed, const glm::vec3& point) {
    return placed.light->type == scene::SCNLightType::directional ? placed.direction
                                                                  : point - placed.position;
}

/// Whether shadows that the element's shape throws on it are too short to be seen: chamfers of two
/// strokes that meet.
bool shadesItselfLittle(
    const PlacedLight& placed, const glm::vec3& middle, float depth, const glm::vec3& outwards) {
    constexpr float kLittle = 5; // scene units
    const glm::vec3 way = wayOf(placed, middle);
    const float down = -glm::dot(outwards, way);
    const float along = std::sqrt(std::max(glm::dot(way, way) - down * down, 0.0f));
    return depth * along <= kLittle * down;
}

/// Receives the shadows of casters: a side of a node's box.
struct Receiver {
    geometry::Box box;   ///< the part of the node in which the element lies
    glm::mat4 toBox{1};  ///< from the world
    glm::vec4 top{0};    ///< plane of the box's side; unit normal outwards
    glm::vec4 bottom{0}; ///< of its end inside the node
    float scale = 1;     ///< of the node; the least
};

/// Radius of the soft edge that every shadow has at least, scene units.
float leastEdge(const ShadowView& view) {
    const float texel = view.receiverShift / kShiftTexels;
    return view.leastRadius * static_cast<float>(view.mapSize) * texel;
}

Receiver receiverOf(const VisibleNode& node, const geometry::MeshElement& element) {
    Receiver receiver;
    receiver.box = slabOf(node, element);
    receiver.toBox = glm::inverse(node.world);
    receiver.top = sideOf(node, element);
    const glm::mat3 axes(node.world);
    receiver.scale = std::min({glm::length(axes[0]), glm::length(axes[1]), glm::length(axes[2])});
    receiver.bottom =
        receiver.top + glm::vec4(0, 0, 0, element.depth * glm::length(axes * element.facing));
    return receiver;
}

bool overlap(const geometry::Box& a, const geometry::Box& b) {
    return glm::all(glm::lessThanEqual(a.min, b.max)) && glm::all(glm::lessThanEqual(b.min, a.max));
}

/// Where the light throws the part of a caster that is clearly before the receiver, with its soft
/// edge. Letters of one line stand in one plane, so they throw nothing on each other's faces. An
/// infinite box if a part of the caster is higher than the light.
geometry::Box thrownBy(
    const VisibleNode& caster,
    const PlacedLight& placed,
    const Receiver& receiver,
    const ShadowView& view) {
    constexpr float kClearly = 0.1f;    // scene units
    constexpr float kEdgeReach = 1.25f; // radii; lookups are blurred, too
    const float lampRadius = placed.light->type == scene::SCNLightType::directional
                                 ? placed.light->lampRadius / kSunDistance
                                 : placed.light->lampRadius;
    const glm::vec4 plane = receiver.top - glm::vec4(0, 0, 0, kClearly);
    const Corners corners = cornersOf(caster);
    geometry::Box thrown;
    if (std::ranges::none_of(corners, [&](const glm::vec3& corner) {
            return glm::dot(plane, glm::vec4(corner, 1)) > 0;
        }))
        return thrown;
    for (const auto& face : kBoxFaces) {
        const Polygon before = clipped(polygonOf(corners, face), plane);
        for (std::size_t i = 0; i < before.count; ++i) {
            const glm::vec3& point = before.points.at(i);
            const glm::vec3 way = wayOf(placed, point);
            const float down = -glm::dot(glm::vec3(receiver.bottom), way);
            if (!(down > 0))
                return {glm::vec3(-INFINITY), glm::vec3(INFINITY)};
            const float farther = glm::dot(receiver.bottom, glm::vec4(point, 1)) / down;
            const glm::vec3 at{receiver.toBox * glm::vec4(point + way * farther, 1)};
            const float edge =
                kEdgeReach * std::max(lampRadius * farther, leastEdge(view)) / receiver.scale;
            thrown.include(at - edge);
            thrown.include(at + edge);
        }
    }
    return thrown;
}

} // namespace

bool isShaded(
    const VisibleNode& node,
    std::size_t element,
    const ShadowView& view,
    const Snapshot& snapshot) {
    const geometry::MeshElement& drawn = node.geometry->mesh().elements[element];
    if (drawn.facing == glm::vec3(0))
        return true;
    const PlacedLight& light = snapshot.lights()[view.light];
    const Receiver receiver = receiverOf(node, drawn);
    const glm::vec3 middle{node.world * glm::vec4((receiver.box.min + receiver.box.max) * 0.5f, 1)};
    if (!shadesItselfLittle(light, middle, drawn.depth, glm::vec3(receiver.top)))
        return true;
    return std::ranges::any_of(snapshot.nodes(), [&](const VisibleNode& caster) {
        return &caster != &node && casts(caster, *light.light) &&
               overlap(receiver.box, thrownBy(caster, light, receiver, view));
    });
}

} // namespace zelvo::render
