// SPDX-License-Identifier: MIT
#include "platform/render/Lighting.h"
#include "platform/render/ShadowOnSide.h"
#include "platform/scene/SCNShapes.h"
#include "render/StageFixture.h"

namespace zelvo::render {
namespace {

using image::Color;
using scene::SCNLightType;
using Lights = Stage;

// The middle of the stage faces each of these lights. All must be equally bright there: a
// directional light has 1000, the others 1000 times the square of the distance.
TEST_F(Lights, OfEachKindShineAsTheirUnitSays) {
    addSquare(makeMatte(Color::white(0.5f)));

    struct Row {
        SCNLightType type;
        float distance;
        double intensity;
    };

    for (const Row& row :
         {Row{SCNLightType::ambient, 5, 1000},
          {SCNLightType::directional, 5, 1000},
          {SCNLightType::omni, 300, 9e7},
          {SCNLightType::spot, 300, 9e7}}) {
        const auto light = addLight(row.type, {0, 0, row.distance}, row.intensity);
        expectNear(middle(), {128, 128, 128}, 2); // as bright as the surface's own colour
        light->intensity = row.intensity / 4;
        expectNear(middle(), {66, 66, 66}, 2); // a quarter of the light
        scene->rootNode()->childNodes().back()->removeFromParentNode();
    }
}

TEST_F(Lights, WhatIsBrighterThanWhiteGlowsButNotInFlatPictures) {
    camera->camera->wantsHDR = true;
    addSquare(makeMatte(Color::white(1)), 0, 0.2f);
    const auto beside = [this](int samples) {
        return at(renderer->snapshotAtTime(0, kSize, {1, samples}), 40, 32)[0];
    };
    const auto light = addLight(SCNLightType::directional, {}, 900);
    EXPECT_EQ(beside(1), 0);
    light->intensity = 8000;
    EXPECT_GT(beside(1), 8);
    EXPECT_NEAR(beside(4), beside(1), 6);
    light->type = SCNLightType::ambient;
    EXPECT_EQ(beside(1), 0);
}

TEST_F(Lights, ShineOnNodesThatShareABitWithTheirMask) {
    struct Row {
        std::uint32_t light;
        std::uint32_t node;
        bool shines;
    };

    const auto square = addSquare(makeMatte());
    const auto light = addLight(SCNLightType::directional, {}, 1000);
    for (const Row& row :
         {Row{2, 260, false}, {4, 260, true}, {0xFFFFFFFF, 1, true}, {2, 3, true}, {1, 2, false}}) {
        light->categoryBitMask = row.light;
        square->categoryBitMask = row.node;
        EXPECT_EQ(middle()[0] > 0, row.shines) << row.light << " on " << row.node;
    }
}

TEST_F(Lights, AFlashLightsTheFrontOfWhatItStandsInWithoutAToneMap) {
    camera->camera->wantsHDR = true;
    addSquare(makeMatte(image::Color::white(1)));
    addLight(scene::SCNLightType::ambient, {0, 0, 0}, 500);
    const int before = middle()[1];
    const scene::SCNLightPtr flash = addLight(scene::SCNLightType::omni, {0, 0, -0.1f}, 1);
    flash->color = {1, 0, 0, 1};
    flash->gain = 300;
    expectNear(middle(), {before, before, before}, 1); // from behind
    flash->lift = 1;
    const Pixel lit = middle();
    EXPECT_GT(lit[0], before + 30);
    EXPECT_EQ(lit[1], before);
}

TEST_F(Lights, ASpotFadesFromItsInnerToItsOuterCone) {
    addSquare(makeMatte());
    const auto light = addLight(SCNLightType::spot, {0, 0, 1.5f}, 2250);
    light->spotInnerAngle = 20; // radius 0.26 on the stage
    light->spotOuterAngle = 60; // radius 0.87
    const image::Image picture = draw();
    EXPECT_NEAR(at(picture, 32, 32)[0], 128, 3);
    // 19 degrees off the axis: two thirds of the way between the cosines, with a smoothstep.
    EXPECT_NEAR(at(picture, 32 + 16, 32)[0], 103, 2);
    EXPECT_EQ(at(picture, 62, 32)[0], 0);
}

// The light comes from the upper right in front; the blocker's shadow falls on the stage's middle.
TEST_F(Lights, ThrowAShadowWhereSomethingStandsInTheirWay) {
    constexpr float kUnit = 200; // half the picture
    camera->position = glm::vec3(0, 0, 10 * kUnit);
    camera->camera->zFar = 20 * kUnit;
    for (const SCNLightType type :
         {SCNLightType::directional, SCNLightType::spot, SCNLightType::omni}) {
        addSquare(makeMatte(), 0, 4 * kUnit)->castsShadow = false;
        const auto blocker = addSquare(makeMatte(), 0, 0.4f * kUnit);
        blocker->position = glm::vec3(0.5f * kUnit);
        const auto light =
            addLight(type, glm::vec3(2 * kUnit), type == SCNLightType::directional ? 1000 : 5e8);
        scene->rootNode()->childNodes().back()->setOrientation(
            glm::quatLookAt(glm::normalize(glm::vec3(-1)), glm::vec3(0, 1, 0)));
        light->spotOuterAngle = 100;
        light->castsShadow = true;
        light->shadowColor.alpha = 1;
        light->zFar = 20 * kUnit;
        const image::Image shadowed = draw();
        blocker->castsShadow = false;
        const image::Image free = draw();
        blocker->categoryBitMask = 1 | 4;
        light->shadowCasterMask = 2 | 4;
        EXPECT_EQ(draw().pixels, shadowed.pixels) << "the light asks for it";
        light->shadowCasterMask = 2;
        EXPECT_EQ(draw().pixels, free.pixels);
        blocker->castsShadow = true;
        light->shadowColor.alpha = 0.5f;
        const image::Image halfShadowed = draw();

        EXPECT_LT(at(shadowed, 32, 32)[0], 3);
        EXPECT_GT(at(free, 32, 32)[0], 60);
        EXPECT_GT(at(halfShadowed, 32, 32)[0], 30);
        EXPECT_LT(at(halfShadowed, 32, 32)[0], at(free, 32, 32)[0] - 10);
        for (const int x :
             {12, 48, 52}) { // stage without, blocker with light: nothing shadows itself
            EXPECT_NEAR(at(shadowed, x, 64 - x)[0], at(free, x, 64 - x)[0], 1) << "at " << x;
        }
        while (scene->rootNode()->childNodes().size() > 1) {
            scene->rootNode()->childNodes().back()->removeFromParentNode();
        }
    }
}

// A wall and a bar before it, lit from the front: the share of light along a line across the edge
// of the bar's shadow.
TEST_F(Lights, ThrowShadowsThatAreSofterFarFromTheirCasterAndFadeWithIt) {
    constexpr float kUnit = 200; // half the picture
    camera->position = glm::vec3(0, 0, 10 * kUnit);
    camera->camera->zFar = 20 * kUnit;
    addSquare(makeMatte(), 0, 4 * kUnit)->castsShadow = false;
    const auto bar = addSquare(makeMatte(), 0, 2 * kUnit);
    const auto light = addLight(SCNLightType::spot, {2 * kUnit, 0, 3 * kUnit}, 5e8);
    scene->rootNode()->childNodes().back()->setOrientation(
        glm::quatLookAt(glm::normalize(glm::vec3(-2, 0, -3)), glm::vec3(0, 1, 0)));
    light->spotOuterAngle = 80;
    light->castsShadow = true;
    light->shadowColor.alpha = 1;
    light->zNear = 100;
    light->lampRadius = 60;
    // The edge of the shadow falls on the wall at x = -0.5 units, column 16.
    const auto columnsOfTheEdge = [&](float z) {
        const float share = z / (3 * kUnit);
        bar->position = glm::vec3(-0.5f * kUnit + share * 2.5f * kUnit + kUnit * (1 - share), 0, z);
        bar->scale = glm::vec3(1 - share);
        const image::Image picture = draw(2); // shadows on a wall are drawn at half the size
        int soft = 0;
        const int barBegins = static_cast<int>(32 * (0.5f + 2.5f * share));
        for (int x = 4; x < std::min(28, barBegins - 2); ++x) {
            const int step = at(picture, x, 32)[0] - at(picture, x + 1, 32)[0];
            EXPECT_GE(step, -4) << "darker to the right, at " << x << ", " << z;
            soft += at(picture, x, 32)[0] > 12 && step > 6 ? 1 : 0;
        }
        return soft;
    };
    const int near = columnsOfTheEdge(0.15f * kUnit);
    const int far = columnsOfTheEdge(1.2f * kUnit);
    EXPECT_LE(near, 3);
    EXPECT_GE(far, near + 3);

    bar->opacity = 0.5f;
    const image::Image half = draw();
    bar->opacity = 0;
    const image::Image none = draw();
    EXPECT_NEAR(at(half, 2, 32)[0], at(none, 2, 32)[0], 2);
    for (int y = 8; y < 56; ++y) // no pattern of holes
        EXPECT_NEAR(at(half, 24, y)[0], at(half, 24, 32)[0], 12) << y;
    EXPECT_LT(at(half, 24, 32)[0], at(none, 24, 32)[0] - 15);
    EXPECT_GT(at(half, 24, 32)[0], 30);
}

// What does not cast is darkened by an image of half the size. A shader modifier prevents that: the
// wall is drawn again with its own lookups.
TEST_F(Lights, DarkenByAnImageAsByTheWallsOwnLookups) {
    constexpr float kUnit = 200; // half the picture
    camera->position = glm::vec3(0, 0, 10 * kUnit);
    camera->camera->zFar = 20 * kUnit;
    const auto wall = makeMatte(Color{0.5f, 0.4f, 0.2f, 1});
    wall->emission.contents = Color{0, 0, 0.5f, 1};
    addSquare(wall, 0, 4 * kUnit)->castsShadow = false;
    const auto step = addSquare(wall, kUnit, 0.5f * kUnit); // before the wall, in the light
    step->castsShadow = false;
    step->position = glm::vec3(-0.25f * kUnit, -0.4f * kUnit, kUnit);
    addSquare(makeMatte(), 0, 0.5f * kUnit)->position = glm::vec3(0.4f * kUnit);
    for (const float side : {1.0f, -1.0f}) {
        const auto light =
            addLight(SCNLightType::directional, glm::vec3(side, 1, 1) * (2 * kUnit), 600);
        scene->rootNode()->childNodes().back()->setOrientation(
            glm::quatLookAt(glm::normalize(glm::vec3(-side, -1, -1)), glm::vec3(0, 1, 0)));
        light->color = side > 0 ? Color{1, 0.3f, 0.2f, 1} : Color{0.2f, 0.3f, 1, 1};
        light->castsShadow = true;
        light->shadowColor.alpha = 0.9f;
    }
    const image::Image darkened = draw(2);
    wall->shaderModifiers[scene::SCNShaderModifierEntryPoint::surface] = "";
    const image::Image drawn = draw(2);
    int dark = 0;
    int others = 0;
    for (int y = 0; y < kSize.height; ++y) {
        for (int x = 0; x < kSize.width; ++x) {
            const Pixel one = at(darkened, x, y);
            const Pixel other = at(drawn, x, y);
            dark += other[0] < 60 ? 1 : 0;
            for (std::size_t c = 0; c < 3; ++c)
                others += std::abs(one.at(c) - other.at(c)) > 8 ? 1 : 0;
        }
    }
    EXPECT_GT(dark, 100) << "there is a shadow";
    EXPECT_LT(others, 1) << "but for its edges";
}

// Otherwise the edges of all shadows would crawl while one letter moves.
TEST(ShadowViews, FollowCastersThatMoveOrGrowInWholeTexels) {
    scene::SCNScene scene;
    auto caster = std::make_shared<scene::SCNNode>();
    caster->geometry = std::make_shared<scene::SCNBox>(1300, 20, 20, 0);
    auto lamp = std::make_shared<scene::SCNNode>();
    lamp->light = std::make_shared<scene::SCNLight>();
    lamp->light->type = SCNLightType::directional;
    lamp->light->castsShadow = true;
    scene.rootNode()->addChildNode(caster);
    scene.rootNode()->addChildNode(lamp);
    const auto texelAt = [&](const glm::vec3& place, float scale) {
        caster->position = place;
        caster->scale = glm::vec3(scale);
        Snapshot snapshot;
        snapshot.take(scene, nullptr, 1);
        const ShadowViews views = shadowViews(snapshot);
        const glm::vec4 somewhere = views.all()[0].toTexture * glm::vec4(100, 50, 20, 1);
        return glm::vec2(somewhere) * static_cast<float>(views.all()[0].mapSize);
    };
    const glm::vec2 before = texelAt({0, 0, 0}, 1);
    EXPECT_NE(texelAt({7.1f, 3.3f, 0}, 1), before) << "the map follows";
    for (const auto& [place, scale] :
         {std::pair{glm::vec3(0.3f, 0.2f, 0), 1.0f}, {{7.1f, 3.3f, 0}, 1}, {{0, 0, 0}, 1.01f}}) {
        const glm::vec2 texels = texelAt(place, scale) - before;
        EXPECT_NEAR(texels.x, std::round(texels.x), 0.02) << place.x << ", " << scale;
        EXPECT_NEAR(texels.y, std::round(texels.y), 0.02) << place.y << ", " << scale;
    }
}

TEST(LightSet, OrdersLightsAsTheShaderComputesThem) {
    scene::SCNLight omni;
    scene::SCNLight directional;
    directional.type = SCNLightType::directional;
    scene::SCNLight spot;
    spot.type = SCNLightType::spot;
    spot.categoryBitMask = 4;
    scene::SCNLight shadowing = directional;
    shadowing.castsShadow = true;
    const std::vector<PlacedLight> lights{{&spot}, {&omni}, {&directional}, {&shadowing}};
    const std::vector<ShadowView> views{{.light = 3}};
    const LightSet set = makeLightSet(lights, views, 1);
    EXPECT_EQ(set.counts, (LightCounts{2, 1, 1, 0, 0}));
    EXPECT_GT(set.block.lightShadow[0].x, 0) << "the one with a shadow comes first";
    EXPECT_EQ(set.block.lightShadow[1].x, 0);
    const std::vector<ShadowView> ofOmni{{.light = 1}};
    EXPECT_EQ(makeLightSet(lights, ofOmni, 1).counts, (LightCounts{2, 0, 0, 1, 1}))
        << "an omni light with a shadow is computed as a spot";
}

TEST(LightSet, TakesNoMoreLightsThanTheShaderHas) {
    const scene::SCNLight light;
    const std::vector<PlacedLight> lights(20, {&light});
    EXPECT_EQ(makeLightSet(lights, {}, 1).counts.omni, kMaxLights);
}

/// Two tiles of 60 x 60 x 20 with chamfers of 2, and a lamp that shines on their faces from above.
class Tiles : public testing::Test {
protected:
    enum Element : std::size_t { face, back, walls, chamfer };

    Tiles() {
        geometry::BezierPath square;
        square.moveTo({-30, -30});
        for (const glm::vec2 corner : {glm::vec2(30, -30), {30, 30}, {-30, 30}})
            square.lineTo(corner);
        square.close();
        auto solid = std::make_shared<scene::SCNShape>(square, 20);
        solid->setChamferRadius(2);
        for (const scene::SCNNodePtr& node : {tile, other}) {
            node->geometry = solid;
            scene.rootNode()->addChildNode(node);
        }
        lamp->light = std::make_shared<scene::SCNLight>();
        lamp->light->type = SCNLightType::spot;
        lamp->light->castsShadow = true;
        lamp->light->lampRadius = 20;
        scene.rootNode()->addChildNode(lamp);
        shineFrom({0, 300, 300});
    }

    void shineFrom(const glm::vec3& place) const {
        lamp->position = place;
        lamp->setOrientation(glm::quatLookAt(glm::normalize(-place), glm::vec3(1, 0, 0)));
    }

    [[nodiscard]] bool isShadedBy(const glm::vec3& place, Element element) {
        other->position = place;
        snapshot.take(scene, nullptr, 1);
        return isShaded(snapshot.nodes()[0], element, shadowViews(snapshot).all()[0], snapshot);
    }

    scene::SCNScene scene;
    scene::SCNNodePtr tile = std::make_shared<scene::SCNNode>();
    scene::SCNNodePtr other = std::make_shared<scene::SCNNode>();
    scene::SCNNodePtr lamp = std::make_shared<scene::SCNNode>();
    Snapshot snapshot;
};

TEST_F(Tiles, AreShadedOnTheirFaceOnlyByWhatStandsBeforeIt) {
    struct Row {
        const char* name;
        glm::vec3 other;
        bool isShaded;
    };

    for (const Row& row :
         {Row{"beside it in its plane", {70, 0, 0}, false},
          {"above, too little before it", {0, 80, 3}, false},
          {"above, as far before it as it is away", {0, 80, 40}, true},
          {"below", {0, -80, 40}, false},
          {"before it", {0, 30, 60}, true},
          {"behind", {0, 0, -60}, false},
          {"above the lamp", {0, 600, 320}, true}}) { // not known
        EXPECT_EQ(isShadedBy(row.other, face), row.isShaded) << row.name;
        EXPECT_EQ(isShadedBy(row.other, chamfer), row.isShaded) << row.name;
    }
    EXPECT_TRUE(isShadedBy({70, 0, 0}, walls)) << "not known";
    lamp->light->lampRadius = 200;
    EXPECT_TRUE(isShadedBy({0, 80, 13}, face)) << "a large lamp throws soft, wide shadows";
    tile->setEulerAngles({-0.6f, 0, 0});
    lamp->light->lampRadius = 20;
    EXPECT_TRUE(isShadedBy({0, 80, 3}, face)) << "leans back, so the other stands before it";
}

TEST_F(Tiles, ShadeTheirChamfersInLowLight) {
    EXPECT_FALSE(isShadedBy({500, 0, 0}, chamfer));
    shineFrom({0, 300, 60});
    EXPECT_TRUE(isShadedBy({500, 0, 0}, chamfer));
    EXPECT_FALSE(isShadedBy({500, 0, 0}, face));
    shineFrom({0, 300, -60});
    EXPECT_TRUE(isShadedBy({500, 0, 0}, chamfer)) << "its outer edge faces the lamp";
}

TEST_F(Tiles, LeaveOutLightsAtTheBackOnlyWhereTheyStandBehind) {
    const auto leftOut = [this](Element element) {
        snapshot.take(scene, nullptr, 1);
        return rearLightsBehind(snapshot.lights(), snapshot.nodes()[0], element);
    };
    EXPECT_EQ(leftOut(back), 0U) << "the lamp is at the front";
    shineFrom({0, 300, -1});
    EXPECT_EQ(leftOut(face), 1U);
    EXPECT_EQ(leftOut(back), 1U) << "the back lies at -10";
    EXPECT_EQ(leftOut(chamfer), 0U) << "it has other sides";
    EXPECT_EQ(leftOut(walls), 0U);
    tile->position = glm::vec3(0, 0, -20);
    EXPECT_EQ(leftOut(face), 0U);
    tile->scale = {1, 1, 3};
    EXPECT_EQ(leftOut(face), 1U);
    tile->setEulerAngles({0, 3.14159f, 0});
    EXPECT_EQ(leftOut(back), 1U) << "which is at the front now";
    lamp->light->type = SCNLightType::directional;
    lamp->setOrientation(glm::quatLookAt(glm::vec3(0, 0, 1), glm::vec3(0, 1, 0)));
    EXPECT_EQ(leftOut(face), 0U) << "turned to the back";
    EXPECT_EQ(leftOut(back), 1U);
    const auto second = std::make_shared<scene::SCNNode>();
    second->light = std::make_shared<scene::SCNLight>();
    second->light->type = SCNLightType::omni;
    second->position = {0, 0, -5};
    scene.rootNode()->addChildNode(second);
    tile->position = glm::vec3(0, 0, -60);
    EXPECT_EQ(leftOut(back), 0U) << "all or none: one of them stands before it";
    lamp->light->categoryBitMask = second->light->categoryBitMask = 2;
    EXPECT_EQ(leftOut(back), 0U) << "they do not shine on it anyway";
}

TEST_F(Tiles, AreTurnedFromPlacesBehindTheirFaces) {
    const auto isSeenFrom = [this](const glm::vec3& place, Element element) {
        snapshot.take(scene, nullptr, 1);
        return !isTurnedFrom(place, snapshot.nodes()[0], element);
    };
    EXPECT_TRUE(isSeenFrom({100, 0, 11}, face));
    EXPECT_FALSE(isSeenFrom({100, 0, 9}, face));
    EXPECT_TRUE(isSeenFrom({100, 0, 9}, walls));
    EXPECT_TRUE(isSeenFrom({0, 0, -11}, back));
    tile->scale = {1, 1, -2};
    EXPECT_TRUE(isSeenFrom({0, 0, -21}, face)) << "a mirrored node";
    EXPECT_FALSE(isSeenFrom({0, 0, 21}, face));
}

} // namespace
} // namespace zelvo::render
