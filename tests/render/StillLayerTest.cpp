// SPDX-License-Identifier: MIT
#include "platform/render/StillLayer.h"

#include "platform/render/ShadowReach.h"
#include "render/StageFixture.h"

#include <functional>

namespace zelvo::render {
namespace {

using image::Color;
using Step = StillLayer::Step;
using Keys = std::vector<std::uint64_t>;

TEST(StillLayer, HoldsWhatStandsStillAsLongAsNothingAroundItChanges) {
    StillLayer layer;
    const auto plan = [&layer](const Keys& keys, std::uint64_t surroundings = 1) {
        return layer.plan(keys, surroundings, {64, 64});
    };
    EXPECT_EQ(plan({7, 8, 100}), Step::without);
    EXPECT_EQ(plan({7, 8, 101}), Step::without);
    EXPECT_EQ(plan({8, 7, 102}), Step::build) << "in whatever order";
    EXPECT_EQ(plan({7, 8, 103, StillLayer::kMoving}), Step::use);
    EXPECT_TRUE(layer.holds(7) && layer.holds(8));
    EXPECT_FALSE(layer.holds(103) || layer.holds(StillLayer::kMoving));
    EXPECT_EQ(plan({7, 9, 103}), Step::without) << "one of the items has gone";
    EXPECT_EQ(plan({7, 9, 104}), Step::without);
    EXPECT_EQ(plan({7, 9, 105}), Step::build);
    EXPECT_EQ(plan({7, 9, 106}, 2), Step::without) << "the camera has moved";
}

TEST(StillLayer, TakesInWhatHasComeToRest) {
    StillLayer layer;
    int builds = 0;
    for (std::uint64_t frame = 0; frame < 60; ++frame) {
        const std::uint64_t comesToRest = std::min<std::uint64_t>(frame, 20);
        builds += layer.plan(Keys{1, 1000 + comesToRest}, 1, {8, 8}) == Step::build ? 1 : 0;
    }
    EXPECT_TRUE(layer.holds(1020));
    EXPECT_EQ(builds, 2);
}

/// A floor lit by a spot with shadows, a box that stays and a box that moves.
class StillStage : public Stage {
protected:
    StillStage() {
        camera->position = glm::vec3(0, 60, 330);
        camera->setEulerAngles({-0.25f, 0, 0});
        camera->camera->fieldOfView = 60;
        camera->camera->zFar = 3000;
        floor = addSquare(lit(0x808088), 0, 1600);
        floor->setEulerAngles({-1.5707963f, 0, 0});
        floor->position = glm::vec3(0, -60, 0);
        floor->castsShadow = false;
        standing = addBox(-60, lit(0xE6194C));
        moving = addBox(60, lit(0xFFFFFF));
        light = addLight(scene::SCNLightType::spot, {-150, 350, 200}, 2.5e8);
        lamp = scene->rootNode()->childNodes().back();
        lamp->setOrientation(
            glm::quatLookAt(glm::normalize(glm::vec3(150, -380, -200)), glm::vec3(0, 1, 0)));
        light->spotOuterAngle = 80;
        light->castsShadow = true;
        light->shadowColor.alpha = 0.9f;
    }

    static scene::SCNMaterialPtr lit(unsigned color) {
        return makeMaterial(Color::hex(color), scene::SCNLightingModel::physicallyBased);
    }

    [[nodiscard]] scene::SCNNodePtr addBox(float x, const scene::SCNMaterialPtr& material) const {
        auto node = addNode({x, -20, 0});
        node->geometry = std::make_shared<scene::SCNBox>(50, 50, 50, 4);
        node->geometry->materials = {material};
        return node;
    }

    /// The picture as drawn by a new renderer.
    [[nodiscard]] image::Image drawnAnew() const {
        auto fresh = *SCNRenderer::make();
        fresh->setScene(scene);
        fresh->pointOfView = camera;
        return fresh->snapshotAtTime(0, kPicture, {1, 1});
    }

    struct Reach {
        PixelRect changed; ///< where shadows change pixels
        PixelRect looked;  ///< where shadows are computed
        PixelRect rough;   ///< the same if all casters are taken together
    };

    [[nodiscard]] Reach reachOn(const std::vector<scene::SCNNodePtr>& receivers) const {
        // For a translucent item, shadows are computed everywhere, so none can be cut off.
        floor->opacity = 0.99f;
        const image::Image shaded = drawnAnew();
        light->shadowColor.alpha = 0.001f;
        const image::Image unshaded = drawnAnew();
        light->shadowColor.alpha = 0.9f;
        floor->opacity = 1.0f;
        Snapshot snapshot;
        snapshot.take(*scene, camera.get(), 16.0f / 9);
        const ShadowViews views = shadowViews(snapshot);
        Reach reach;
        for (const VisibleNode& node : snapshot.nodes()) {
            const auto isThis = [&](const auto& other) {
                return other->geometry.get() == node.geometry;
            };
            if (std::ranges::none_of(receivers, isThis))
                continue;
            const ShadowView& view = views.all()[0];
            reach.looked = reach.looked.united(shadowReach(node, view, snapshot, kPicture));
            reach.rough =
                reach.rough.united(shadowOnScreen(node, view, snapshot.camera(), kPicture));
        }
        for (int y = 0; y < kPicture.height; ++y) {
            for (int x = 0; x < kPicture.width; ++x) {
                if (std::abs(at(shaded, x, y)[0] - at(unshaded, x, y)[0]) > 2)
                    reach.changed = reach.changed.united({x, y, x + 1, y + 1});
            }
        }
        return reach;
    }

    static constexpr Size kPicture{160, 90};
    scene::SCNNodePtr floor;
    scene::SCNNodePtr standing;
    scene::SCNNodePtr moving;
    scene::SCNLightPtr light;
    scene::SCNNodePtr lamp;
};

TEST_F(StillStage, ChangesShowAtOnce) {
    struct Change {
        const char* name;
        std::function<void()> make;
    };

    const auto paint = [this](std::array<std::uint8_t, 4> pixel) {
        floor->geometry->materials[0]->diffuse.setImage(sharePicture(1, 1, {pixel}));
    };
    const Change changes[] = {
        {"nothing", [] {}},
        {"a box moves", [this] { moving->position = glm::vec3(80, 10, 20); }},
        {"a light", [this] { light->color = Color::hex(0x19E64C); }},
        {"the background", [this] { scene->background.contents = Color::hex(0x194CE6); }},
        {"a number", [this] { floor->geometry->materials[0]->roughness.contents = 0.1f; }},
        {"a picture",
         [paint] {
             paint({9, 99, 199, 255});
         }},
        {"another picture",
         [paint] {
             paint({199, 99, 9, 255});
         }},
        {"the camera", [this] { camera->position = glm::vec3(10, 60, 330); }},
        {"a solid", [this] { standing->geometry = std::make_shared<scene::SCNBox>(90, 40, 9, 0); }},
        {"a caster fades", [this] { moving->opacity = 0.5f; }},
        {"it fades further", [this] { moving->opacity = 0.3f; }},
        {"hiding", [this] { standing->isHidden = true; }},
        {"the exposure", [this] { camera->camera->exposureOffset = -1; }},
    };
    image::Image last(1, 1);
    for (const Change& change : changes) {
        change.make();
        const image::Image wanted = drawnAnew();
        EXPECT_NE(wanted.pixels, last.pixels) << change.name << " is not to be seen";
        last = wanted;
        for (int frame = 0; frame < 15; ++frame) {
            ASSERT_EQ(renderer->snapshotAtTime(0, kPicture, {1, 1}).pixels, wanted.pixels)
                << change.name << ", frame " << frame;
        }
    }
}

// A glow over a floor that mirrors, and a veil behind all. They may be drawn before what moves, but
// only where nobody can tell.
TEST_F(StillStage, GlowsAndVeilsLookTheSameWhateverMovesBesideThem) {
    const auto ground = floor->geometry->materials[0];
    ground->floor = scene::SCNFloorLook{.mirror = 0.8f, .contact = 0.9f};
    ground->roughness.contents = 0.1f;
    floor->geometry = std::make_shared<scene::SCNPlane>(1600, 280);
    floor->geometry->materials = {ground};
    const auto tint = sharePicture(1, 1, {{80, 100, 50, 128}});
    const auto addFlat = [&](const glm::vec3& place, float side, scene::SCNBlendMode mode) {
        const auto node = addSquare(makeMaterial(Color::white(1)), place.z, side);
        node->position = place;
        node->geometry->materials[0]->diffuse.setImage(tint);
        node->geometry->materials[0]->blendMode = mode;
        node->castsShadow = false;
    };
    addFlat({0, 0, -150}, 600, scene::SCNBlendMode::alpha);
    addFlat({30, 60, -100}, 80, scene::SCNBlendMode::add);
    addFlat({30, 40, -60}, 90, scene::SCNBlendMode::alpha);
    addFlat({75, 15, -40}, 40, scene::SCNBlendMode::add);
    addFlat({-60, -5, 30}, 24, scene::SCNBlendMode::add);
    const glm::vec3 kPlaces[] = {
        {70, -30, 30},  // before all
        {20, 40, -80},  // between two
        {25, 60, -100}, // through one
        {30, 60, -200}, // behind all
        {-80, 65, 45},  // it throws a shadow on the box behind one
    };
    for (const glm::vec3& place : kPlaces) {
        for (int frame = 0; frame < 31; ++frame) {
            moving->position = place + glm::vec3(0.5f * static_cast<float>(frame), 0, 0);
            const image::Image drawn = renderer->snapshotAtTime(0, kPicture, {1, 1});
            if (frame % 15 != 0)
                continue;
            ASSERT_EQ(drawn.pixels, drawnAnew().pixels)
                << "place " << place.x << " " << place.z << ", frame " << frame;
        }
    }
}

TEST_F(StillStage, ShadowsAreLookedUpWhereTheyFallAndNowhereElse) {
    const Reach all = reachOn({floor, standing, moving});
    EXPECT_EQ(all.changed.intersected(all.looked), all.changed) << "a shadow would be cut off";
    EXPECT_GT(all.changed.area(), 200);
    EXPECT_LT(all.looked.area(), all.rough.area());
    EXPECT_LT(all.rough.area(), 0.6 * PixelRect::whole(kPicture).area());

    // Low light with soft edges: the shadow lookup is moved far off the floor.
    lamp->position = glm::vec3(-350, 0, 0);
    lamp->setOrientation(glm::quatLookAt(glm::normalize(glm::vec3(350, -20, 0)), {0, 1, 0}));
    light->shadowRadius = 16;
    standing->isHidden = true;
    moving->position = glm::vec3(60, 0, 0);
    const Reach low = reachOn({floor});
    EXPECT_EQ(low.changed.intersected(low.looked), low.changed) << "a shadow would be cut off";
    EXPECT_GT(low.changed.area(), 200);
}

} // namespace
} // namespace zelvo::render
