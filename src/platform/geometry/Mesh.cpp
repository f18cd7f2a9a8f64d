// SPDX-License-Identifier: MIT
#include "platform/geometry/Mesh.h"

#include <glm/common.hpp>

namespace zelvo::geometry {

void Box::include(const glm::vec3& point) {
    min = glm::min(min, point);
    max = glm::max(max, point);
}

void Box::include(const Box& other) {
    if (other.isEmpty())
        return;
    include(other.min);
    include(other.max);
}

Box Mesh::bounds() const {
    Box box;
    for (const Vertex& vertex : vertices) {
        box.include(vertex.position);
    }
    return box;
}

} // namespace zelvo::geometry
