// SPDX-License-Identifier: MIT
#pragma once

#include <glm/mat4x4.hpp>

#include <vector>

namespace zelvo::node {

/// A transform for model input and output. Times in seconds.
struct TransformComponent {
    glm::mat4 matrix{1};
    bool resetsTransform = true;
    double minimumTime = 0;
    double maximumTime = 0;
    std::vector<double> keyTimes;
};

} // namespace zelvo::node
