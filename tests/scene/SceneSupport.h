// SPDX-License-Identifier: MIT
#pragma once

#include "platform/scene/SCNScene.h"

#include <gtest/gtest.h>

#include <vector>

namespace zelvo::scene {

inline void
expectNear(const glm::vec3& actual, const glm::vec3& expected, float tolerance = 1e-4f) {
    EXPECT_NEAR(actual.x, expected.x, tolerance);
    EXPECT_NEAR(actual.y, expected.y, tolerance);
    EXPECT_NEAR(actual.z, expected.z, tolerance);
}

/// A scene with one node below its root.
struct Stage {
    SCNScene scene;
    SCNNodePtr node = std::make_shared<SCNNode>();

    Stage() { scene.rootNode()->addChildNode(node); }

    void apply(const std::vector<double>& times) {
        for (const double time : times) {
            scene.applyAnimations(time);
        }
    }
};

} // namespace zelvo::scene
