// SPDX-License-Identifier: MIT
#pragma once

#include "platform/scene/CAKeyframeAnimation.h"
#include "platform/scene/SCNNode.h"

#include <cstdint>
#include <string>

namespace zelvo::scene {

/// A keyframe animation on its node, from SCNNode::addAnimation until it ends or has blended out.
struct SCNNode::KeyframeRun {
    CAKeyframeAnimation animation;
    std::string key;       ///< empty while it blends out: it does not count any more
    std::uint64_t addedIn; ///< evaluations begun when it was added: it starts in a later one
    double elapsed = 0;
    bool hasBegun = false;
    double blendOut = 0; ///< seconds that the blending out takes; 0: it does not
    double blendLeft = 0;

    // Of the last evaluation.
    float weight = 0;
    glm::vec3 position{0};
    glm::quat orientation{1, 0, 0, 0};

    void advance(double step);
    [[nodiscard]] bool isOver() const;
};

} // namespace zelvo::scene
