// SPDX-License-Identifier: MIT
#pragma once

#include <glm/vec3.hpp>

#include <vector>

namespace zelvo::node {

/// A value at a time (seconds).
struct KeyPoint {
    glm::vec3 value{0};
    double time = 0;
};

/// A list of values at times. Data only: nothing looks values up in it yet.
struct KeyPointController {
    bool findNearest = false;
    glm::vec3 defaultValue{0}; ///< used where no key point applies
    std::vector<KeyPoint> keyPoints;
};

} // namespace zelvo::node
