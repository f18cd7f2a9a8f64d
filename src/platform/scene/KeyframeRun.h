// SPDX-License-Identifier: MIT
#pragma once

#include "platform/scene/CAKeyframeAnimation.h"
#include "platform/scene/SCNNode.h"

#include <cstdint>
#include <string>

namespace zelvo::scene {

/// A keyframe animation while it runs on a node: from SCNNode::addAnimation until it ends or has
/// blended out.
struct SCNNode::KeyframeRun {
    CAKeyframeAnimation animation;
    std::string key;       ///< empty while it blends out, because the key is free by then
    std::uint64_t addedIn; ///< number of evaluations when it was added; it starts in the next one
    double elapsed = 0;
    bool hasBegun = false;
    double blendOut = 0; ///< seconds that blending out takes; 0 = does not blend out
    double blendLeft = 0;

    // Results of the last evaluation.
    float weight = 0;
    glm::vec3 position{0};
    glm::quat orientation{1, 0, 0, 0};

    void advance(double step);
    [[nodiscard]] bool isOver() const;
};

} // namespace zelvo::scene
