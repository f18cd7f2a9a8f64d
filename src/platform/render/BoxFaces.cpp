// SPDX-License-Identifier: MIT
#include "platform/render/BoxFaces.h"

#include <glm/common.hpp>
#include <glm/geometric.hpp>
#include <glm/matrix.hpp>

#include <algorithm>
#include <cmath>

namespace zelvo::render {

Corners cornersOf(const geometry::Box& box, const glm::mat4& world) {
    Corners corners{};
    for (unsigned i = 0; i < corners.size(); ++i) {
        const glm::vec3 corner(
            (i & 1U) != 0 ? box.max.x : box.min.x,
            (i & 2U) != 0 ? box.max.y : box.min.y,
            (i & 4U) != 0 ? box.max.z : box.min.z);
        corners.at(i) = glm::vec3(world * glm::vec4(corner, 1));
    }
    return corners;
}

Corners cornersOf(const VisibleNode& node) {
    return cornersOf(node.geometry->boundingBox(), node.world);
}

glm::vec4 sideOf(const VisibleNode& node, const geometry::MeshElement& element) {
    const glm::vec3 normal =
        glm::normalize(glm::transpose(glm::inverse(glm::mat3(node.world))) * element.facing);
    float height = -INFINITY;
    for (const glm::vec3& corner : cornersOf(node))
        height = std::max(height, glm::dot(normal, corner));
    return {normal, -height};
}

Polygon polygonOf(const Corners& corners, const std::array<std::size_t, 4>& face) {
    Polygon polygon;
    for (const std::size_t corner : face) {
        polygon.add(corners.at(corner));
    }
    return polygon;
}

Polygon clipped(const Polygon& polygon, const glm::vec4& plane) {
    Polygon result;
    for (std::size_t i = 0; i < polygon.count; ++i) {
        const glm::vec3& a = polygon.points.at(i);
        const glm::vec3& b = polygon.points.at((i + 1) % polygon.count);
        const float beforeA = glm::dot(plane, glm::vec4(a, 1));
        const float beforeB = glm::dot(plane, glm::vec4(b, 1));
        if (beforeA >= 0)
            result.add(a);
        if ((beforeA >= 0) != (beforeB >= 0))
            result.add(glm::mix(a, b, beforeA / (beforeA - beforeB)));
    }
    return result;
}

} // namespace zelvo::render
