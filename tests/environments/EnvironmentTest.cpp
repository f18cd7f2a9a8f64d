// SPDX-License-Identifier: MIT
#include "environments/SceneManager.h"
#include "node/DefaultSCNNode.h"
#include "platform/foundation/Folders.h"
#include "platform/image/Image.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fstream>

namespace zelvo::environments {
namespace {

using image::Color;

constexpr Color kRed{1, 0, 0, 1};
constexpr Color kGreen{0, 1, 0, 1};
constexpr Color kBlue{0, 0, 1, 1};

enum Index {
    flat = 0,
    plain = 1,
    shiny = 2,
    ancient = 4,
    backlight = 5,
    stage = 6,
    spaceBox = 7,
    brilliance = 8,
    subtle = 9,
    flares = 10
};

constexpr int kCount = static_cast<int>(SceneManager::sceneNames.size());

class EnvironmentTest : public testing::Test {
protected:
    [[nodiscard]] SNEPtr environment(int index) { return SceneManager::sceneData(index, runLoop); }

    static std::vector<scene::SCNLightPtr> lightsOf(const SNE& environment) {
        std::vector<scene::SCNLightPtr> lights;
        environment.scene->rootNode()->enumerateHierarchy([&lights](scene::SCNNode& node) {
            if (node.light)
                lights.push_back(node.light);
        });
        return lights;
    }

    static scene::SCNNodePtr nodeOf(const SNE& environment, const std::string& name) {
        return environment.scene->rootNode()->childNodeWithName(
            name, scene::SCNNode::Search::recursively);
    }

    foundation::VirtualRunLoop runLoop;
};

TEST_F(EnvironmentTest, AreMadeByNumber) {
    for (int index = 0; index < kCount; ++index) {
        const SNEPtr one = environment(index);
        ASSERT_NE(one, nullptr) << SceneManager::sceneNames.at(static_cast<std::size_t>(index));
        EXPECT_NE(one->scene, environment(index)->scene) << "never kept";
        for (const char* const aid : {"camera", "testText"}) {
            EXPECT_EQ(
                one->scene->rootNode()->childNodeWithName(aid, scene::SCNNode::Search::recursively),
                nullptr);
        }
    }
    for (const int index : {-1, kCount})
        EXPECT_EQ(environment(index), nullptr) << index;
}

TEST_F(EnvironmentTest, LightTheContent) {
    for (int index = 0; index < kCount; ++index) {
        const SNEPtr one = environment(index);
        bool isLit = one->scene->lightingEnvironment.image() != nullptr;
        for (const auto& light : lightsOf(*one)) {
            isLit = isLit || (light->categoryBitMask & node::kContentMask) != 0;
        }
        EXPECT_TRUE(isLit) << SceneManager::sceneNames.at(static_cast<std::size_t>(index));
    }
    const auto probe = environment(shiny)->scene->lightingEnvironment.image();
    EXPECT_NE(probe->lightProbe, nullptr) << "its light was prepared when resources were baked";
}

TEST_F(EnvironmentTest, FlatAndPlainShowTheColourItself) {
    for (const int index : {flat, plain}) {
        const SNEPtr one = environment(index);
        one->setBackground({0.2f, 0.4f, 0.6f, 1});
        EXPECT_EQ(one->scene->background.colorOr({}), (Color{0.2f, 0.4f, 0.6f, 1}));
        EXPECT_EQ(one->backgroundColor(), (Color{0.2f, 0.4f, 0.6f, 1}));
    }
    EXPECT_EQ(lightsOf(*environment(flat)).at(0)->color, Color::white(1));
}

TEST_F(EnvironmentTest, StageStaysBlackUnderAColouredLamp) {
    const SNEPtr one = environment(stage);
    one->setBackground(kRed);
    EXPECT_EQ(one->scene->background.colorOr(kGreen), Color::white(0));
    const auto lamp =
        one->scene->rootNode()->childNodeWithName("omniLight", scene::SCNNode::Search::recursively);
    ASSERT_NE(lamp, nullptr);
    EXPECT_EQ(lamp->light->color, kRed);
}

TEST_F(EnvironmentTest, ShinyEndsOnTheLastColour) {
    const SNEPtr one = environment(shiny);
    const image::ImagePtr untouched = one->scene->background.image();
    ASSERT_NE(untouched, nullptr);
    for (const Color& color : {kRed, kGreen, kBlue})
        one->setBackground(color);
    EXPECT_EQ(one->scene->background.image(), untouched) << "tinted behind the scenes";
    runLoop.drain();
    image::ImagePtr shown = one->scene->background.image();
    ASSERT_NE(shown, untouched);
    EXPECT_EQ(shown->pixels.at(0), 0);
    EXPECT_EQ(shown->pixels.at(2), 255) << "blue, the last one";
    EXPECT_EQ(shown->pixels.at(3), untouched->pixels.at(3))
        << "only the alpha of the picture counts";

    one->setBackground(kRed);
    runLoop.drain();
    shown = one->scene->background.image();
    EXPECT_EQ(shown->pixels.at(0), 255);
    EXPECT_EQ(shown->pixels.at(2), 0);

    one->scene->background.contents = kRed;
    one->setBackground(kGreen);
    EXPECT_EQ(one->scene->background.colorOr({}), kGreen) << "a colour is replaced at once";
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
        float shift;        ///< of the hue, turns; red is given
        std::uint32_t mask; ///< of the light; 0: every node's
    };

    // clang-format off
    const auto rows = std::to_array<Row>({
        {ancient,    "light3",      0,      0},
        {ancient,    "light5",      0,      0},
        {ancient,    "light4",      0,      2},
        {ancient,    "shadowLight", 0,      2},
        {backlight,  "shadowLight", 0,      0},
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
    for (const Row& row : rows) {
        const SNEPtr one = environment(row.index);
        one->setBackground(kRed);
        const auto node = nodeOf(*one, row.lamp);
        ASSERT_TRUE(node && node->light) << row.lamp;
        const float turns = row.shift < 0 ? row.shift + 1 : row.shift;
        EXPECT_NEAR(image::toHSB(node->light->color).hue, turns, 1e-4f) << row.lamp;
        if (row.mask != 0) {
            EXPECT_EQ(node->light->categoryBitMask, row.mask) << row.lamp;
        } else {
            EXPECT_NE(node->light->categoryBitMask & node::kContentMask, 0U) << row.lamp;
        }
    }
}

TEST_F(EnvironmentTest, KeepLampsThatAreNotTheColours) {
    const SNEPtr showroom = environment(backlight);
    const SNEPtr space = environment(spaceBox);
    showroom->setBackground(kRed);
    space->setBackground(kRed);
    for (const char* const lamp : {"light3", "light4", "light5"}) {
        ASSERT_NE(nodeOf(*showroom, lamp), nullptr) << lamp;
        EXPECT_NE(nodeOf(*showroom, lamp)->light->color, kRed) << lamp;
    }
    ASSERT_NE(nodeOf(*space, "light1"), nullptr);
    EXPECT_NE(nodeOf(*space, "light1")->light->color, kRed);
    EXPECT_EQ(nodeOf(*space, "light1")->light->categoryBitMask, 2U);
    EXPECT_EQ(nodeOf(*environment(ancient), "plane")->categoryBitMask, 2U);
}

TEST_F(EnvironmentTest, TakeTheColourWithoutTheNodesOfTheirRecipes) {
    (void)content::mediaShapes(); // which have scene files of their own, read once
    const test::TemporaryFolder folder;
    const foundation::Bundle whole = foundation::mainBundle();
    const std::filesystem::path resources = whole.path("Plain.scn").parent_path();
    for (const auto& file : std::filesystem::directory_iterator(resources)) {
        if (file.path().extension() == ".scn")
            std::ofstream(folder.path() / file.path().filename())
                << R"({"nodes": [{"name": "omni1"}, {"name": "bystander"}]})";
    }
    std::vector<std::filesystem::path> roots = whole.roots();
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
    foundation::setMainBundle(whole);
}

TEST_F(EnvironmentTest, TintCubesFaceByFace) {
    struct Row {
        int index;
        const char* faces; ///< by letter, in the cube's order; the same letter is the same picture
        std::size_t untinted; ///< a face that keeps its own colours; 6 is none
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
    struct Row {
        Color color;
        float offset;
        float hue;
    };

    // clang-format off
    const auto rows = std::to_array<Row>({
        {kRed,  -0.06f, -0.06f  },
        {kRed,  0.3f,   0.3f    },
        {kBlue, 0.5f,   1.0f / 6},
    });
    // clang-format on
    for (const Row& row : rows)
        EXPECT_NEAR(hueShifted(row.color, row.offset).hue, row.hue, 1e-5f);
    const Color grey = Color::white(0.4f);
    const Color same = image::fromHSB(hueShifted(grey, 0.12f));
    EXPECT_NEAR(same.red, 0.4f, 1e-5f);
    EXPECT_NEAR(same.blue, 0.4f, 1e-5f);
}

} // namespace
} // namespace zelvo::environments
