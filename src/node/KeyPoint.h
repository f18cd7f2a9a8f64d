// SPDX-License-Identifier: MIT
#pragma once

#include <glm/vec3.hpp>

#include <vector>

namespace zelvo::core {

/// A value at a time (seconds).
struct KeyPoint {
    glm::vec3 value{0};
    double time = 0;
};

/// A time-keyed list of values; a shape of data only, nothing looks values up in it yet.
struct KeyPointController {
    bool findNearest = false;
    glm::vec3 defaultValue{0}; ///< where no key point applies
    std::vector<KeyPoint> keyPoints;
};

} // namespace zelvo::core
