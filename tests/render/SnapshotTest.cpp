// SPDX-License-Identifier: MIT
#include "platform/render/Snapshot.h"

#include "platform/geometry/Primitives.h"
#include "platform/render/DepthOfField.h"
#include "platform/scene/SCNShapes.h"

#include <gtest/gtest.h>

#include <string>

namespace zelvo::render {
namespace {

class Snapshots : public testing::Test {
protected:
    scene::SCNNodePtr add(const glm::vec3& position, float opacity = 1) const {
        auto node = std::make_shared<scene::SCNNode>();
        node->position = position;
        node->opacity = opacity;
        node->geometry = std::make_shared<scene::SCNBox>(1, 1, 1, 0);
        node->castsShadow = false;
        scene.rootNode()->addChildNode(node);
        return node;
    }

    /// The x positions of the drawn nodes.
    std::string order(std::span<const DrawItem> items) {
        std::string result;
        for (const DrawItem& item : items) {
            const float x = snapshot.nodes()[item.node].world[3].x;
            result += std::to_string(static_cast<int>(std::lround(x))) + " ";
        }
        return result;
    }

    scene::SCNScene scene;
    Snapshot snapshot;
};

TEST_F(Snapshots, SortOpaqueFrontToBackAndTranslucentBackToFront) {
    add({1, 0, -10});
    add({2, 0, -30});
    add({3, 0, -20});
    add({4, 0, -10}, 0.5f);
    add({5, 0, -30}, 0.5f);
    add({6, 0, -20}, 0.5f);
    snapshot.take(scene, nullptr, 2);
    EXPECT_EQ(order(snapshot.opaque()), "1 3 2 ");
    EXPECT_EQ(order(snapshot.translucent()), "5 6 4 ");
}

TEST_F(Snapshots, LeaveOutWhatCannotBeSeenButKeepWhatThrowsAShadow) {
    add({1, 0, -10});
    add({2, 0, 10});   // behind
    add({90, 0, -10}); // beside
    add({3, 0, -500}); // beyond zFar
    add({4, 0, -10})->isHidden = true;
    add({5, 0, -10}, 0.001f);
    const auto parent = add({0, 50, 0}, 0.02f);
    auto child = std::make_shared<scene::SCNNode>();
    child->geometry = parent->geometry;
    child->opacity = 0.02f;
    child->position = glm::vec3(6, -50, -10);
    parent->addChildNode(child); // together below the visible opacity
    snapshot.take(scene, nullptr, 1);
    EXPECT_EQ(order(snapshot.opaque()) + order(snapshot.translucent()), "1 ");
    add({7, 0, 10})->castsShadow = true;
    snapshot.take(scene, nullptr, 1);
    EXPECT_EQ(order(snapshot.opaque()), "1 ");
    EXPECT_TRUE(snapshot.nodes().back().castsShadow && !snapshot.nodes().back().isInView);
}

TEST_F(Snapshots, TurnBillboardsToTheCameraAtTheirOwnSize) {
    auto eye = std::make_shared<scene::SCNNode>();
    eye->camera = std::make_shared<scene::SCNCamera>();
    eye->setEulerAngles({0, 1, 0});
    scene.rootNode()->addChildNode(eye);
    const auto node = add({-10, 0, -6});
    node->isBillboard = true;
    node->scale = glm::vec3(3);
    snapshot.take(scene, nullptr, 1);
    ASSERT_EQ(snapshot.nodes().size(), 1U);
    const glm::mat4 seen = snapshot.camera().view * snapshot.nodes()[0].world;
    EXPECT_NEAR(seen[0].x, 3, 1e-4);
    EXPECT_NEAR(seen[0].z, 0, 1e-4);
}

// A ball with versions whose surfaces are 0.1 and 1 off.
class Ball final : public scene::SCNGeometry {
private:
    [[nodiscard]] geometry::Mesh build() const override {
        geometry::Mesh mesh = geometry::makeSphere(10, 12);
        mesh.coarser = {{{0, 1, 2}, 0.1F}, {{0, 1, 2}, 1}};
        mesh.isClosedSolid = true;
        return mesh;
    }
};

TEST_F(Snapshots, TakeFewerTrianglesWhereTheyCannotBeToldFromAll) {
    const auto node = add({0, 0, -200});
    node->geometry = std::make_shared<Ball>();
    auto eye = std::make_shared<scene::SCNNode>();
    eye->camera = std::make_shared<scene::SCNCamera>();
    eye->camera->zFar = 1000;
    scene.rootNode()->addChildNode(eye);
    const auto levelAt = [&](float distance, int height) {
        node->position = glm::vec3(0, 0, -distance);
        snapshot.take(scene, nullptr, 1, height);
        return snapshot.nodes()[0].level;
    };
    // At a distance of 200 - 5, a picture of 1000 rows and 60 degrees has 4.4 of them a unit.
    EXPECT_EQ(levelAt(200, 1000), 1U);
    EXPECT_EQ(levelAt(200, 200), 1U); // 0.9 of a pixel is seen in the shading
    EXPECT_EQ(levelAt(200, 140), 2U); // 0.6
    EXPECT_EQ(levelAt(80, 1000), 0U);
    EXPECT_EQ(levelAt(80, 0), 0U); // whole, if nobody says how large the picture is
    node->scale = glm::vec3(3);
    EXPECT_EQ(levelAt(200, 1000), 0U);
}

TEST_F(Snapshots, BackFacesOfAClosedSolidAreSeenOnlyFromInsideOfItsBox) {
    const auto node = add({0, 0, -200});
    node->geometry = std::make_shared<Ball>();
    snapshot.take(scene, nullptr, 1);
    const VisibleNode& ball = snapshot.nodes()[0];
    EXPECT_FALSE(canShowBackFaces(ball, {0, 0, 0}));
    EXPECT_TRUE(canShowBackFaces(ball, {0, 0, -200}));
    EXPECT_TRUE(canShowBackFaces(ball, {0, 0, -189.5F}));         // the near plane reaches in
    node->geometry = std::make_shared<scene::SCNBox>(1, 1, 1, 0); // nobody has looked
    snapshot.take(scene, nullptr, 1);
    EXPECT_TRUE(canShowBackFaces(snapshot.nodes()[0], {0, 0, 0}));
}

// A subject as wide as a picture of 16:9 stays within a square; a wide picture shows it as high.
TEST(Camera, KeepsTheWidthInNarrowPicturesAndTheHeightInWideOnes) {
    scene::SCNCamera camera;
    camera.narrowestAspect = 16.0 / 9;
    const auto edgeAt = [&](double aspect, const glm::vec3& place) {
        const CameraView view = makeCameraView(glm::mat4(1), camera, static_cast<float>(aspect));
        const glm::vec4 clip = view.viewProjection * glm::vec4(place, 1);
        return glm::vec2(clip) / clip.w;
    };
    const float up = 10 * std::tan(glm::radians(30.0F)); // 60 degrees are high
    const float right = up * 16 / 9;
    EXPECT_NEAR(edgeAt(1, {right, 0, -10}).x, 1, 1e-4);
    EXPECT_NEAR(edgeAt(9.0 / 16, {right, 0, -10}).x, 1, 1e-4);
    EXPECT_NEAR(edgeAt(21.0 / 9, {0, up, -10}).y, 1, 1e-4);
}

// Expected: the photographers' hyperfocal distance H = f^2 / (N c) + f. With this focus, objects
// infinitely far away have a blur of c. A lens of 50 mm, f/8 and c = 24 mm / 1000 (one pixel in a
// picture 1000 high) has H = 13.07 m.
TEST(DepthOfField, AgreesWithTheHyperfocalDistance) {
    scene::SCNCamera camera;
    camera.fieldOfView = 26.9915; // 2 atan(24 mm / (2 * 50 mm))
    camera.fStop = 8;
    camera.focusDistance = 13.07;
    EXPECT_NEAR(largestBlur(camera, {1000, 1000}), 1, 0.01);
    camera.wantsDepthOfField = true;
    EXPECT_TRUE(needsDepthOfField(camera, {1000, 1000}));
    // The stage's own camera at full size: less blur than an output pixel can show.
    camera.fieldOfView = 60;
    camera.fStop = 5.1;
    camera.focusDistance = 10;
    EXPECT_FALSE(needsDepthOfField(camera, {1920, 1080}));
}

} // namespace
} // namespace zelvo::render
