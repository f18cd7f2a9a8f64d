// SPDX-License-Identifier: MIT
#include "platform/geometry/BezierPath.h"
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
        ground = addNode({});
        ground->geometry = std::make_shared<scene::SCNPlane>(2000, 2000);
        ground->geometry->materials = {floor};
        ground->setEulerAngles({-1.5707963f, 0, 0});
        ground->categoryBitMask = 2;
        ground->castsShadow = false;
        floor->floor = scene::SCNFloorLook{.mirror = 1, .blur = 0, .contact = 0, .lift = 40};
        floor->roughness.contents = 0.0f;
    }

    /// The row that shows this height at z = 0.
    static int rowOf(float y) {
        const float half = 200 * std::tan(0.5235988f);
        return static_cast<int>((1 - (y - 50) / half) * 32);
    }

    /// Light from straight above, with shadows of any thing.
    [[nodiscard]] scene::SCNLightPtr addSun() const {
        scene::SCNLightPtr sun = addLight(scene::SCNLightType::directional, {0, 500, 0}, 700);
        scene->rootNode()->childNodes().back()->setEulerAngles({-1.5707963f, 0, 0});
        sun->castsShadow = true;
        sun->shadowColor = Color{0, 0, 0, 0.8f};
        return sun;
    }

    [[nodiscard]] image::Image drawWithoutFloor() const {
        return renderer->snapshot(
            {.time = 0, .outputSize = kSize, .quality = {1, 1}, .leftOut = 2});
    }

    static int alphaAt(const image::Image& picture, int x, int y) {
        return picture.pixels[static_cast<std::size_t>(y * picture.width + x) * 4 + 3];
    }

    scene::SCNNodePtr ground;
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

TEST_F(Floor, ShowsNoEditingAids) {
    floor->diffuse.contents = Color::white(0.5f);
    addLight(scene::SCNLightType::ambient, {}, 1000);
    const auto frame = addNode({});
    const auto bar = std::make_shared<scene::SCNNode>();
    bar->geometry = std::make_shared<scene::SCNBox>(60, 20, 20, 0);
    bar->geometry->materials = {makeMaterial(Color::hex(0xFF0000))};
    bar->position = glm::vec3(0, 12, 0);
    frame->addChildNode(bar);
    for (const bool mirrors : {true, false}) {
        SCOPED_TRACE(mirrors ? "mirror image" : "dark place");
        floor->floor =
            scene::SCNFloorLook{.mirror = mirrors ? 1.0f : 0.0f, .contact = mirrors ? 0.0f : 1.0f};
        const auto below = [this] { return at(draw(), 32, rowOf(-4)); };
        frame->isHidden = true;
        const Pixel bare = below();
        frame->isHidden = false;
        EXPECT_NE(below(), bare);
        frame->showsOnFloors = false;
        EXPECT_EQ(below(), bare);
        frame->showsOnFloors = true;
    }
}

// The top of a solid is not its first element.
TEST_F(Floor, ShowsThingsOnAllOfItsElements) {
    geometry::BezierPath outline;
    outline.moveTo({-1000, -10});
    outline.lineTo({1000, -10});
    outline.lineTo({1000, 0});
    outline.lineTo({-1000, 0});
    outline.close();
    const auto slab = std::make_shared<scene::SCNShape>(outline, 2000);
    slab->materials = {floor};
    ground->geometry = slab;
    ground->setEulerAngles({});
    const auto thing = addSquare(makeMaterial(Color::hex(0xFF0000)), 0, 40);
    thing->position = glm::vec3(0, 80, 0);
    EXPECT_GT(at(draw(), 32, rowOf(0))[0], 200);
}

// Left out, the floor still shows its mirror image and how much darker shadows make it.
TEST_F(Floor, LeavesShadowsAndMirrorImageAsAlphaWhereItIsLeftOut) {
    floor->diffuse.contents = Color::white(0.7f);
    const auto thing = addSquare(makeMaterial(Color::hex(0xFF0000)), 0, 40);
    thing->position = glm::vec3(0, 80, 0);
    const image::Image mirror = drawWithoutFloor();
    EXPECT_GT(alphaAt(mirror, 32, rowOf(0)), 150);
    expectNear(at(mirror, 32, rowOf(0)), {255, 0, 0}, 2);
    EXPECT_EQ(alphaAt(mirror, 60, 60), 0) << "beside it";
    EXPECT_EQ(alphaAt(mirror, 32, 2), 0) << "above the horizon";

    floor->floor = scene::SCNFloorLook{.mirror = 0, .contact = 0};
    thing->setEulerAngles({1.5707963f, 0, 0});
    addLight(scene::SCNLightType::ambient, {}, 300);
    const scene::SCNLightPtr sun = addSun();
    const image::Image shadow = drawWithoutFloor();
    const image::Image dark = draw();
    sun->castsShadow = false;
    const image::Image bright = draw();
    int shaded = 0;
    for (int y = 34; y < kSize.height; ++y) {
        for (int x = 0; x < kSize.width; ++x) {
            // Black with this alpha over the bright floor is the dark one.
            const double kept = 1 - alphaAt(shadow, x, y) / 255.0;
            ASSERT_NEAR(lit(kept, at(bright, x, y)[1]), at(dark, x, y)[1], 3) << x << ", " << y;
            ASSERT_EQ(at(shadow, x, y), (Pixel{0, 0, 0}));
            shaded += alphaAt(shadow, x, y) > 100 ? 1 : 0;
        }
    }
    EXPECT_GT(shaded, 20);
}

TEST_F(Floor, DoesNotShowItsEndsWhereItIsLeftOut) {
    ground->geometry = std::make_shared<scene::SCNPlane>(900, 900);
    ground->geometry->materials = {floor};
    floor->floor = scene::SCNFloorLook{.mirror = 0, .contact = 0};
    floor->diffuse.contents = Color::white(0.7f);
    camera->position = glm::vec3(450, 150, 300);
    (void)addSun();
    const auto roof = addSquare(makeMatte(), 0, 3000);
    roof->position = glm::vec3(0, 400, 0);
    roof->setEulerAngles({1.5707963f, 0, 0});
    roof->geometry->materials.front()->isDoubleSided = true;
    const image::Image matte = drawWithoutFloor();
    const int row = 58;
    EXPECT_GT(alphaAt(matte, 0, row), 130) << "in the shade";
    EXPECT_EQ(alphaAt(matte, 63, row), 0) << "beyond the end";
    for (int x = 1; x < kSize.width; ++x)
        EXPECT_NEAR(alphaAt(matte, x, row), alphaAt(matte, x - 1, row), 20) << x;
}

} // namespace
} // namespace zelvo::render
