// SPDX-License-Identifier: MIT
#include "environments/SceneManager.h"
#include "node/DefaultSCNNode.h"
#include "platform/foundation/Folders.h"
#include "platform/image/Image.h"
#include "support/TemporaryFolder.h"

#include <glm/geometric.hpp>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>

namespace zelvo::environments {
namespace {

using image::Color;

constexpr Color kRed{1, 0, 0, 1};
constexpr Color kGreen{0, 1, 0, 1};
constexpr Color kBlue{0, 0, 1, 1};

enum Index {
    flat,
    plain,
    shiny,
    spherical,
    ancient,
    backlight,
    stage,
    spaceBox,
    brilliance,
    subtle,
    flares
};

constexpr int kCount = static_cast<int>(SceneManager::sceneNames.size());

class EnvironmentTest : public testing::Test {
protected:
    [[nodiscard]] SNEPtr environment(int index) { return SceneManager::sceneData(index, runLoop); }

    static scene::SCNNodePtr nodeOf(const SNE& environment, const std::string& name) {
        return environment.scene->rootNode()->childNodeWithName(
            name, scene::SCNNode::Search::recursively);
    }

    foundation::VirtualRunLoop runLoop;
};

TEST_F(EnvironmentTest, AreMadeByNumberAndLightTheContent) {
    for (int index = 0; index < kCount; ++index) {
        const SNEPtr one = environment(index);
        ASSERT_NE(one, nullptr) << index;
        EXPECT_NE(one->scene, environment(index)->scene) << "each call builds a new one";
        EXPECT_FALSE(nodeOf(*one, "camera") || nodeOf(*one, "testText")) << index;
        bool isLit = one->scene->lightingEnvironment.image() != nullptr;
        one->scene->rootNode()->enumerateHierarchy([&isLit](const scene::SCNNode& node) {
            isLit |= node.light && (node.light->categoryBitMask & node::kContentMask) != 0;
        });
        EXPECT_TRUE(isLit) << index;
    }
    for (const int index : {-1, kCount})
        EXPECT_EQ(environment(index), nullptr) << index;
    EXPECT_NE(environment(shiny)->scene->lightingEnvironment.image()->lightProbe, nullptr);
}

TEST_F(EnvironmentTest, LettersThrowAShadowOnTheShapeBehindThem) {
    for (const int index : {plain, ancient, backlight, stage, spaceBox, subtle, flares}) {
        bool isThrown = false;
        environment(index)->scene->rootNode()->enumerateHierarchy([&](const scene::SCNNode& node) {
            isThrown |= node.light && node.light->castsShadow &&
                        (node.light->categoryBitMask & node::kContentMask) != 0 &&
                        (node.light->shadowCasterMask & node::kContentMask) != 0;
        });
        EXPECT_TRUE(isThrown) << index;
    }
}

TEST_F(EnvironmentTest, TheStageStandsUnderTheContentButItsLampsStay) {
    for (int index = 0; index < kCount; ++index) {
        const SNEPtr one = environment(index);
        scene::SCNNode* floor = nullptr;
        std::vector<const scene::SCNNode*> lamps;
        one->scene->rootNode()->enumerateHierarchy([&](scene::SCNNode& node) {
            if (node.geometry && node.geometry->materialFor(0)->floor)
                floor = &node;
            if (node.light && node.light->categoryBitMask == 4)
                lamps.push_back(&node);
        });
        if (floor == nullptr)
            continue;
        const auto ground = [floor] {
            return floor->worldTransform()[3].y + floor->geometry->materialFor(0)->floor->height;
        };
        const auto lampsAt = [&lamps] {
            float sum = 0;
            for (const scene::SCNNode* lamp : lamps)
                sum += lamp->worldTransform()[3].y;
            return sum;
        };
        const float before = lampsAt();

        struct Row {
            float lowest;
            float ground;
            float leastLift;
        };

        for (const Row& row :
             {Row{-120, -121, 0}, {-155, -156, 0}, {-400, -185, 0}, {-20, -90, 10}}) {
            one->setGround(row.lowest);
            EXPECT_NEAR(ground(), row.ground, 1) << index << ", " << row.lowest;
            EXPECT_GE(floor->geometry->materialFor(0)->floor->lift, row.leastLift) << index;
        }
        EXPECT_EQ(lampsAt(), before) << index;
    }
}

TEST_F(EnvironmentTest, ShowTheColourItselfOrStayBlack) {
    struct Row {
        int index;
        Color background; ///< expected for red
    };

    const Color black = Color::white(0);
    for (const Row& row :
         {Row{flat, kRed}, {plain, kRed}, {ancient, black}, {stage, black}, {brilliance, black}}) {
        const SNEPtr one = environment(row.index);
        one->setBackground(kRed);
        runLoop.drain();
        EXPECT_EQ(one->scene->background.colorOr(kGreen), row.background) << row.index;
        EXPECT_EQ(one->backgroundColor(), kRed) << row.index;
    }
}

TEST_F(EnvironmentTest, PicturesEndOnTheLastColour) {
    for (const int index : {shiny, spherical}) {
        const SNEPtr one = environment(index);
        const auto& background = one->scene->background;
        const image::ImagePtr untouched = background.image();
        ASSERT_NE(untouched, nullptr);
        for (const std::vector<Color>& colors : {std::vector{kRed, kGreen, kBlue}, {kRed}}) {
            const image::ImagePtr before = background.image();
            for (const Color& color : colors)
                one->setBackground(color);
            EXPECT_EQ(background.image(), before) << "tinted on the queue";
            runLoop.drain();
            ASSERT_NE(background.image(), before);
            const std::vector<std::uint8_t>& pixels = background.image()->pixels;
            EXPECT_EQ(pixels.at(0), colors.back() == kRed ? 255 : 0);
            EXPECT_EQ(pixels.at(2), colors.back() == kBlue ? 255 : 0);
            EXPECT_EQ(pixels.at(3), untouched->pixels.at(3)) << "only the picture's alpha counts";
        }
        one->setBackground(kBlue);
        one->scene->background.contents = kRed;
        one->setBackground(kGreen);
        EXPECT_EQ(background.colorOr({}), kGreen) << "a colour is replaced at once";
        runLoop.drain();
        EXPECT_EQ(background.colorOr({}), kGreen) << "and the tint before it is dropped";
    }
}

TEST_F(EnvironmentTest, ParticlesAreBornAllAroundTheStage) {
    for (const int index : {spherical, brilliance}) {
        const SNEPtr one = environment(index);
        one->scene->applyAnimations(0);
        one->scene->applyAnimations(1);
        float farthest = 0;
        one->scene->rootNode()->enumerateHierarchy([&farthest](const scene::SCNNode& node) {
            for (const auto& emitter : node.emitters()) {
                for (const scene::Particle& particle : emitter->live())
                    farthest = std::max(farthest, glm::length(particle.position));
            }
        });
        EXPECT_NEAR(farthest, 2500, 500) << index; // they travel a little
    }
}

TEST_F(EnvironmentTest, ATintMayOutliveItsEnvironment) {
    SNEPtr one = environment(shiny);
    const scene::SCNScenePtr left = one->scene;
    const image::ImagePtr before = left->background.image();
    one->setBackground(kRed);
    one.reset();
    runLoop.drain();
    EXPECT_EQ(left->background.image(), before);
}

TEST_F(EnvironmentTest, SpreadTheColourOverTheirLamps) {
    struct Row {
        int index;
        const char* lamp;
        float shift;        ///< of the hue, from red, in turns; kOwn: the lamp keeps its colour
        std::uint32_t mask; ///< of the light; 0: the light reaches every node
    };

    constexpr float kOwn = 9;

    // clang-format off
    const auto rows = std::to_array<Row>({
        {ancient,    "light3",      0,      0},
        {ancient,    "light5",      0,      0},
        {ancient,    "light4",      0,      2},
        {ancient,    "shadowLight", 0,      2},
        {backlight,  "shadowLight", 0,      0},
        {backlight,  "light3",      kOwn,   0},
        {backlight,  "light4",      kOwn,   0},
        {backlight,  "light5",      kOwn,   0},
        {stage,      "omniLight",   0,      0},
        {spaceBox,   "light1",      kOwn,   2},
        {brilliance, "spotLight1",  0.06f,  4},
        {brilliance, "spotLight2",  0.12f,  4},
        {brilliance, "spotLight3",  -0.12f, 4},
        {brilliance, "spotLight4",  -0.06f, 4},
        {subtle,     "colorLight",  0,      0},
        {flares,     "omni1",       0,      0},
        {flares,     "omni2",       0,      0},
        {flares,     "omni3",       0.3f,   0},
        {flares,     "omni4",       0.3f,   0},
    });
    // clang-format on
    int bodies = 0; // tubes, cones and glows that hang below a lamp
    for (const Row& row : rows) {
        const SNEPtr one = environment(row.index);
        one->setBackground(kRed);
        const auto node = nodeOf(*one, row.lamp);
        ASSERT_TRUE(node && node->light) << row.lamp;
        const float turns = row.shift < 0 ? row.shift + 1 : row.shift;
        const float hue = image::toHSB(node->light->color).hue;
        EXPECT_EQ(std::abs(hue - turns) < 1e-4f, row.shift != kOwn) << row.lamp << ": " << hue;
        EXPECT_NE(node->light->color == kRed, row.shift != 0) << row.lamp;
        const std::uint32_t mask = node->light->categoryBitMask;
        node->enumerateHierarchy([&](const scene::SCNNode& part) {
            if (!part.geometry)
                return;
            ++bodies;
            const auto& material = part.geometry->materials.front();
            EXPECT_EQ(material->multiply.colorOr(kGreen), node->light->color) << part.name;
        });
        EXPECT_TRUE(row.mask != 0 ? mask == row.mask : (mask & node::kContentMask) != 0) << mask;
    }
    EXPECT_GT(bodies, 0);
    EXPECT_EQ(nodeOf(*environment(ancient), "plane")->categoryBitMask, 2U);
}

TEST_F(EnvironmentTest, TakeTheColourWithoutTheNodesOfTheirRecipes) {
    (void)content::mediaShapes(); // read now, because the test replaces all scene files
    const test::TemporaryFolder folder;
    const std::vector<std::filesystem::path> whole = foundation::mainBundle().roots();
    const std::filesystem::path resources =
        foundation::mainBundle().path("Plain.scn").parent_path();
    for (const auto& file : std::filesystem::directory_iterator(resources)) {
        if (file.path().extension() == ".scn")
            std::ofstream(folder.path() / file.path().filename())
                << R"({"nodes": [{"name": "omni1"}, {"name": "bystander"}]})";
    }
    std::vector<std::filesystem::path> roots = whole;
    roots.insert(roots.begin(), folder.path());
    foundation::setMainBundle(foundation::Bundle(roots));
    int bare = 0;
    for (int index = 0; index < kCount; ++index) {
        const SNEPtr one = environment(index);
        one->setBackground(kGreen);
        runLoop.drain();
        EXPECT_EQ(one->backgroundColor(), kGreen);
        bare += nodeOf(*one, "bystander") ? 1 : 0;
    }
    EXPECT_GE(bare, 8) << "stood on such a scene";
    foundation::setMainBundle(foundation::Bundle(whole));
}

TEST_F(EnvironmentTest, TintCubesFaceByFace) {
    struct Row {
        int index;
        const char* faces;    ///< a letter for each, in the cube's order; same letter: same picture
        std::size_t untinted; ///< a face that keeps its own colours; 6: none
    };

    for (const Row& row : {Row{backlight, "aaaaba", 6}, Row{spaceBox, "aabbaa", 2}}) {
        const SNEPtr one = environment(row.index);
        for (const Color& color : {kRed, kGreen, kBlue})
            one->setBackground(color);
        EXPECT_FALSE(std::holds_alternative<scene::CubeImages>(one->scene->background.contents));
        EXPECT_EQ(
            one->scene->background.colorOr({}), row.index == backlight ? kBlue : Color::white(0));
        runLoop.drain();
        const auto* const faces = std::get_if<scene::CubeImages>(&one->scene->background.contents);
        ASSERT_NE(faces, nullptr);
        for (std::size_t i = 0; i < faces->size(); ++i) {
            const image::Image& face = *faces->at(i);
            EXPECT_EQ(faces->at(i) == faces->front(), row.faces[i] == 'a') << i;
            EXPECT_EQ(face.pixels.at(0), 0) << "neither red nor green is left";
            EXPECT_EQ(face.pixels.at(1), 0);
            EXPECT_EQ(face.pixels.at(2) == 0, i == row.untinted || i == row.untinted + 1) << i;
        }
    }
}

TEST_F(EnvironmentTest, ShiftsHuesWithTheSumsOwnSign) {
    EXPECT_NEAR(hueShifted(kRed, -0.06f).hue, -0.06f, 1e-5f);
    EXPECT_NEAR(hueShifted(kBlue, 0.5f).hue, 1.0f / 6, 1e-5f);
    EXPECT_NEAR(image::fromHSB(hueShifted(Color::white(0.4f), 0.12f)).blue, 0.4f, 1e-5f);
}

} // namespace
} // namespace zelvo::environments
