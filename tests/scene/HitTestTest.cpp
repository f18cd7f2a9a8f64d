// SPDX-License-Identifier: MIT
#include "platform/scene/HitTest.h"

#include "platform/scene/SCNShapes.h"

#include <glm/gtc/matrix_transform.hpp>
#include <gtest/gtest.h>

namespace zelvo::scene {

namespace {

SCNNodePtr plane(SCNNode& parent, float z) {
    auto node = std::make_shared<SCNNode>();
    node->geometry = std::make_shared<SCNPlane>(2, 2);
    node->geometry->materials = {std::make_shared<SCNMaterial>()};
    node->position = glm::vec3(0, 0, z);
    parent.addChildNode(node);
    return node;
}

/// Two planes behind each other; the viewer looks from z = 10.
struct TwoPlanes : testing::Test {
    SCNNodePtr root = std::make_shared<SCNNode>();
    SCNNodePtr front = plane(*root, 4);
    SCNNodePtr back = plane(*root, 0);

    [[nodiscard]] SCNMaterial& material() const { return *front->geometry->materials[0]; }

    [[nodiscard]] SCNNodePtr seenAt(float x, float y) const {
        const auto found = hitTest(*root, {{x, y, 10}, {0, 0, -2}});
        return found ? found->node : nullptr;
    }
};

using HitTest = TwoPlanes;

TEST_F(HitTest, TakesTheNearestAndTellsItsPlace) {
    const auto found = hitTest(*root, {{0.5f, 0.5f, 10}, {0, 0, -2}});
    ASSERT_TRUE(found);
    EXPECT_EQ(found->node, front);
    EXPECT_FLOAT_EQ(found->distance, 3); // in lengths of the direction, which is 2
    EXPECT_EQ(found->textureCoordinates, glm::vec2(0.75f, 0.25f));
    EXPECT_EQ(seenAt(3, 0), nullptr);

    front->isHidden = true;
    EXPECT_EQ(seenAt(0, 0), back);
}

TEST_F(HitTest, FollowsTheTransformsOfAllAncestors) {
    root->position = glm::vec3(100, 0, 0);
    root->scale = glm::vec3(5);
    front->setEulerAngles({0, 1.5f, 0}); // nearly edge on
    EXPECT_EQ(seenAt(104, 0), back);
    EXPECT_EQ(seenAt(0, 0), nullptr);
    front->scale = glm::vec3(0);
    EXPECT_EQ(seenAt(100, 0), back);
}

TEST_F(HitTest, PassesOverBacksUnlessTheyAreDrawn) {
    front->setEulerAngles({0, 3.1415927f, 0});
    EXPECT_EQ(seenAt(0, 0), back);
    material().isDoubleSided = true;
    EXPECT_EQ(seenAt(0, 0), front);
    material().isDoubleSided = false;
    front->scale = glm::vec3(1, 1, -1); // mirrored: its front looks this way again
    EXPECT_EQ(seenAt(0, 0), front);
}

TEST_F(HitTest, PassesThroughHolesOfThePicture) {
    image::Image picture(2, 2); // transparent but for the top left pixel
    picture.pixels[3] = 255;
    material().diffuse.setImage(std::make_shared<const image::Image>(picture));
    EXPECT_EQ(seenAt(-0.5f, 0.5f), front);
    EXPECT_EQ(seenAt(0.5f, 0.5f), back);
    material().diffuse.wrapS = SCNWrapMode::repeat;
    material().diffuse.contentsTransform = glm::scale(glm::mat4(1), {-1, 1, 1}); // mirrored
    EXPECT_EQ(seenAt(-0.5f, 0.5f), back);
    EXPECT_EQ(seenAt(0.5f, 0.5f), front);
}

TEST_F(HitTest, PassesThroughWhatAMaskCutsAway) {
    image::Image mask(2, 1); // black and white, opaque
    mask.pixels = {0, 0, 0, 255, 255, 255, 255, 255};
    material().transparent.setImage(std::make_shared<const image::Image>(mask));
    material().transparencyMode = SCNTransparencyMode::rgbZero;
    EXPECT_EQ(seenAt(-0.5f, 0), front);
    EXPECT_EQ(seenAt(0.5f, 0), back);
    material().transparency = 0.05f; // hardly visible anywhere
    EXPECT_EQ(seenAt(-0.5f, 0), back);
}

} // namespace

} // namespace zelvo::scene
