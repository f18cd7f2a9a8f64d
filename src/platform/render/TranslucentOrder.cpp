// SPDX-License-Identifier: MIT
#include "platform/render/TranslucentOrder.h"

#include "platform/render/ShadowReach.h"

#include <glm/geometric.hpp>

#include <algorithm>
#include <optional>

namespace zelvo::render {
namespace {

/// The plane of a flat node: dot(xyz, place) + w is above 0 on the eye's side.
std::optional<glm::vec4> planeOf(const VisibleNode& node, const glm::vec3& eye) {
    const geometry::Box box = node.geometry->boundingBox();
    if (box.max.z > box.min.z)
        return std::nullopt;
    const glm::vec3 right(node.world[0]);
    const glm::vec3 up(node.world[1]);
    const glm::vec3 point(node.world * glm::vec4(box.min, 1));
    const glm::vec3 normal = glm::cross(right, up);
    const glm::vec4 plane(normal, -glm::dot(normal, point));
    const float side = glm::dot(plane, glm::vec4(eye, 1));
    return side < 0 ? -plane : plane;
}

/// Whether all of the box is on the positive side.
bool isBefore(const geometry::Box& box, const glm::vec4& plane) {
    const glm::vec3 normal(plane);
    const glm::vec3 deepest = glm::mix(box.max, box.min, glm::greaterThan(normal, glm::vec3(0)));
    return glm::dot(normal, deepest) + plane.w > 0;
}

bool overlap(const PixelRect& a, const PixelRect& b) {
    return !a.intersected(b).isEmpty();
}

/// Whether what is drawn later changes nothing of a flat item.
bool isHarmless(const Change& later, const PixelRect& part, const glm::vec4& plane) {
    return !overlap(part, later.part) || isBefore(later.box, plane);
}

bool isSum(const DrawItem& item) {
    return item.material->blendMode == scene::SCNBlendMode::add;
}

} // namespace

void TranslucentOrder::begin(const CameraView& camera, Size picture) {
    view = camera;
    size = picture;
    floor.reset();
    shades.clear();
    later.clear();
    unheld.clear();
}

void TranslucentOrder::addLater(const VisibleNode& node, const PixelRect& part) {
    if (!part.isEmpty())
        later.push_back({worldBox(node), part});
}

void TranslucentOrder::addShade(const VisibleNode& node, const PixelRect& part) {
    shades.push_back({worldBox(node), part});
}

void TranslucentOrder::addFloor(
    const VisibleNode& node, const PixelRect& mirror, const PixelRect& dark) {
    floor = Floor{{worldBox(node), mirror}, dark};
}

bool TranslucentOrder::isBeforeShade(
    const PixelRect& part, const std::optional<glm::vec4>& plane, const DrawItem& item) const {
    if (isSum(item))
        return !floor || !overlap(part, floor->dark);
    const auto changesNothing = [&](const Change& change) {
        return plane ? isHarmless(change, part, *plane) : !overlap(part, change.part);
    };
    return std::ranges::all_of(shades, changesNothing) && (!floor || changesNothing(floor->mirror));
}

TranslucentOrder::Place
TranslucentOrder::placeOf(const VisibleNode& node, const DrawItem& item) const {
    const std::optional<glm::vec4> plane = planeOf(node, view.position);
    const PixelRect part = boundsOnScreen(node, view, size);
    const auto keepsOrder = [&](const Unheld& other) {
        return !overlap(part, other.part) || (other.isSum && isSum(item));
    };
    const auto keepsTurn = [&](const Unheld& other) {
        return other.place != Place::inTurn || keepsOrder(other);
    };
    if (!isBeforeShade(part, plane, item) || !std::ranges::all_of(unheld, keepsTurn))
        return Place::inTurn;
    const auto changesNothing = [&](const Change& change) {
        return isHarmless(change, part, *plane);
    };
    return plane && std::ranges::all_of(later, changesNothing) &&
                   std::ranges::all_of(unheld, keepsOrder)
               ? Place::beforeAll
               : Place::beforeShade;
}

void TranslucentOrder::addUnheld(const VisibleNode& node, const DrawItem& item, Place place) {
    unheld.push_back({boundsOnScreen(node, view, size), isSum(item), place});
}

} // namespace zelvo::render
