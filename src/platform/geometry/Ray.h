// SPDX-License-Identifier: MIT
#pragma once

#include <glm/vec3.hpp>

namespace zelvo::geometry {

/// A half line in space. Distances along it are counted in lengths of `direction`.
struct Ray {
    glm::vec3 origin{0};
    glm::vec3 direction{0, 0, -1};
};

} // namespace zelvo::geometry
