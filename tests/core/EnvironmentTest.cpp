// SPDX-License-Identifier: MIT
#include "core/node/DefaultSCNNode.h"
#include "look/environments/SceneManager.h"
#include "platform/image/Image.h"

#include <gtest/gtest.h>

namespace zelvo::look {
namespace {

using image::Color;

constexpr Color kRed{1, 0, 0, 1};
constexpr Color kGreen{0, 1, 0, 1};
constexpr Color kBlue{0, 0, 1, 1};

enum Index { flat = 0, plain = 1, shiny = 2, stage = 6 };

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

    foundation::VirtualRunLoop runLoop;
};

TEST_F(EnvironmentTest, AreMadeByNumber) {
    for (const int index : {flat, plain, shiny, stage}) {
        const SNEPtr one = environment(index);
        ASSERT_NE(one, nullptr) << SceneManager::sceneNames.at(static_cast<std::size_t>(index));
        EXPECT_NE(one->scene, environment(index)->scene) << "never kept";
        for (const char* const aid : {"camera", "testText"}) {
            EXPECT_EQ(
                one->scene->rootNode()->childNodeWithName(aid, scene::SCNNode::Search::recursively),
                nullptr);
        }
    }
    for (const int index : {-1, 3, 4, 5, 7, 8, 9, 10, 11})
        EXPECT_EQ(environment(index), nullptr) << index;
}

TEST_F(EnvironmentTest, LightTheContent) {
    for (const int index : {flat, plain, shiny, stage}) {
        const SNEPtr one = environment(index);
        bool isLit = one->scene->lightingEnvironment.image() != nullptr;
        for (const auto& light : lightsOf(*one)) {
            isLit = isLit || (light->categoryBitMask & core::kContentMask) != 0;
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

TEST_F(EnvironmentTest, ShiftsHuesWithTheSumsOwnSign) {
    struct Row {
        Color color;
        float offset;
        float hue;
    };

    const auto rows = std::to_array<Row>({
        {kRed,  -0.06f, -0.06f  },
        {kRed,  0.3f,   0.3f    },
        {kBlue, 0.5f,   1.0f / 6},
    });
    for (const Row& row : rows)
        EXPECT_NEAR(hueShifted(row.color, row.offset).hue, row.hue, 1e-5f);
    const Color grey = Color::white(0.4f);
    const Color same = image::fromHSB(hueShifted(grey, 0.12f));
    EXPECT_NEAR(same.red, 0.4f, 1e-5f);
    EXPECT_NEAR(same.blue, 0.4f, 1e-5f);
}

} // namespace
} // namespace zelvo::look
