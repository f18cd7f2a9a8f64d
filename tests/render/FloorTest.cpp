// SPDX-License-Identifier: MIT
#include "render/StageFixture.h"

#include <glm/gtc/quaternion.hpp>

#include <cmath>

namespace zelvo::render {
namespace {

using image::Color;

/// A black floor at height 0, seen from 50 above it and 200 in front of the middle.
class Floor : public Stage {
protected:
    Floor() {
        camera->position = glm::vec3(0, 50, 200);
        camera->camera->fieldOfView = 60;
        camera->camera->zFar = 5000;
        const auto node = addNode({});
        node->geometry = std::make_shared<scene::SCNPlane>(2000, 2000);
        node->geometry->materials = {floor};
        node->setEulerAngles({-1.5707963f, 0, 0});
        node->categoryBitMask = 2;
        node->castsShadow = false;
        floor->floor = scene::SCNFloorLook{.mirror = 1, .blur = 0, .contact = 0, .lift = 40};
        floor->roughness.contents = 0.0f;
    }

    /// The row that shows this height at z = 0.
    static int rowOf(float y) {
        const float half = 200 * std::tan(0.5235988f);
        return static_cast<int>((1 - (y - 50) / half) * 32);
    }

    scene::SCNMaterialPtr floor = makeMatte(Color::white(0));
};

TEST_F(Floor, MirrorsWhatIsAboveItAtItsPlace) {
    // The mirror is 40 above the floor, so the image reaches from -20 to 20.
    const auto thing = addSquare(makeMaterial(Color::hex(0xFF0000)), 0, 40);
    thing->position = glm::vec3(0, 80, 0);
    const image::Image sharp = draw();
    EXPECT_GT(at(sharp, 32, rowOf(0))[0], 200) << "the mirror image";
    EXPECT_LT(at(sharp, 32, rowOf(40))[0], 20) << "the gap between the thing and its image";
    EXPECT_LT(at(sharp, 50, rowOf(0))[0], 20) << "beside it";

    floor->floor->blur = 1;
    const image::Image soft = draw();
    EXPECT_GT(at(soft, 32, rowOf(-26))[0], at(sharp, 32, rowOf(-26))[0] + 10);
    EXPECT_LT(at(soft, 32, rowOf(-14))[0], at(sharp, 32, rowOf(-14))[0] - 10);
    floor->roughness.contents = 0.9f;
    EXPECT_LT(at(draw(), 32, rowOf(0))[0], at(soft, 32, rowOf(0))[0] / 2) << "rough";
}

TEST_F(Floor, IsDarkerUnderThingsTheNearerTheyAre) {
    floor->diffuse.contents = Color::white(0.8f);
    floor->floor = scene::SCNFloorLook{.mirror = 0, .contact = 1};
    addLight(scene::SCNLightType::ambient, {}, 1000);
    const auto box = addNode({});
    box->geometry = std::make_shared<scene::SCNBox>(60, 20, 20, 0);
    box->geometry->materials = {makeMatte()};
    const auto floorBeforeTheBox = [&](float height) {
        box->position = glm::vec3(0, height + 10, 0);
        const image::Image picture = draw();
        EXPECT_NEAR(at(picture, 2, rowOf(-3))[0], 204, 3) << "far beside";
        return at(picture, 32, rowOf(-3))[0];
    };
    const int standing = floorBeforeTheBox(0);
    const int floating = floorBeforeTheBox(60);
    EXPECT_LT(standing, 160);
    EXPECT_GT(floating, standing + 20);
    EXPECT_LT(floating, 200);
    EXPECT_NEAR(floorBeforeTheBox(400), 204, 3);
}

} // namespace
} // namespace zelvo::render
