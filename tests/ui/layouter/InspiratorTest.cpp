// SPDX-License-Identifier: MIT
#include "ui/layouter/Inspirator.h"

#include "environments/SceneManager.h"
#include "shared/Palette.h"
#include "ui/UiFixture.h"
#include "ui/layouter/RandomStyle.h"

#include <gmock/gmock.h>

#include <set>
#include <string>
#include <utility>
#include <vector>

namespace zelvo::ui {
namespace {

class InspiratorTest : public test::UiTest {};

TEST_F(InspiratorTest, DrawsAllButTheLastOfEachList) {
    std::set<int> scenes;
    std::set<std::size_t> colors;
    std::set<look::XMATClasses> materials;
    for (int i = 0; i < 2000; ++i) {
        const RandomStyle style = drawRandomStyle(nodes);
        scenes.insert(style.scene);
        colors.insert(style.background);
        materials.insert(style.material);
        EXPECT_LT(style.bevelRadius, 4.0);
        EXPECT_LT(style.extrusionDepth, 60);
    }
    const std::size_t lastScene = environments::SceneManager::sceneNames.size() - 1;
    EXPECT_EQ(scenes.size(), lastScene);
    EXPECT_FALSE(scenes.contains(static_cast<int>(lastScene)));
    EXPECT_EQ(colors.size(), kPalette.size() - 1);
    EXPECT_FALSE(colors.contains(kPalette.size() - 1));
    EXPECT_EQ(materials.size(), look::kPairs.size() - 1);
    EXPECT_FALSE(materials.contains(look::kPairs.back().name));
}

// In "Flat" and "Plain" the background is a single colour. A black or white text must have the other
// colour there.
TEST_F(InspiratorTest, TextsTakeTheGroundsColourButNeverVanishInBlackOrWhite) {
    int oneColor = 0;
    for (int i = 0; i < 4000; ++i) {
        const RandomStyle style = drawRandomStyle(nodes);
        if (style.scene >= 2) {
            EXPECT_EQ(style.text, style.background);
        } else if (style.background == kWhiteIndex || style.background == kBlackIndex) {
            ++oneColor;
            EXPECT_EQ(style.text, kWhiteIndex + kBlackIndex - style.background);
        }
    }
    EXPECT_GT(oneColor, 10);
}

TEST_F(InspiratorTest, AppliesOneStyleToTextsObjectAndStage) {
    applyRandomStyle(model, {7, 12, 12, look::XMATClasses::iron, 1.5, 33});
    for (const auto& text : {nodes.textNode1, nodes.textNode2}) {
        EXPECT_EQ(text->frontColor(), kPalette[12]);
        EXPECT_EQ(text->bandColor(), kPalette[12]);
        EXPECT_EQ(text->fontName(), "Audiowide-Regular");
        EXPECT_DOUBLE_EQ(text->bevelRadius(), 1.5);
        EXPECT_DOUBLE_EQ(text->extrusionDepth(), 33);
        EXPECT_EQ(text->bevelInnerOuter(), look::BevelInnerOuter::outer);
        EXPECT_EQ(text->bevelProfile(), look::BevelProfile::rounded);
    }
    EXPECT_EQ(nodes.mediaNode->currentMaterialName(), look::XMATClasses::iron);
    EXPECT_EQ(model.currentBackgroundColor(), kPalette[12]);
    EXPECT_EQ(model.currentSceneIndex(), 7);

    nodes.mediaNode->setCustomNode(std::make_shared<scene::SCNNode>());
    applyRandomStyle(model, {7, 12, 12, look::XMATClasses::rock, 1.5, 33});
    EXPECT_EQ(nodes.mediaNode->currentMaterialName(), std::nullopt)
        << "an imported object keeps its own materials";
}

TEST_F(InspiratorTest, CountsDotsChangesUnseenAndComesBack) {
    Inspirator inspirator(services);
    std::vector<std::pair<double, double>> fades;
    inspirator.fadeScene = [&](double alpha, double seconds) {
        fades.emplace_back(alpha, seconds);
    };
    std::vector<std::string> titles;
    QObject::connect(&inspirator.button, &MyButton::changed, [&] {
        const std::string title = inspirator.button.title().toStdString();
        if (titles.empty() || titles.back() != title)
            titles.push_back(title);
    });
    const environments::SNEPtr before = model.sceneData();

    inspirator.button.click();
    EXPECT_FALSE(inspirator.button.isEnabled());
    inspirator.button.click(); // is disabled by now
    world.runLoop.runFor(0.23);
    EXPECT_EQ(model.sceneData(), before) << "changed while it is visible";
    world.runLoop.runFor(0.03);
    EXPECT_NE(model.sceneData(), before);
    EXPECT_EQ(inspirator.titleAlpha(), 1);
    world.runLoop.runFor(0.12);
    EXPECT_EQ(inspirator.titleAlpha(), 0);
    EXPECT_EQ(fades.size(), 1U);
    world.runLoop.runFor(2);
    using Fade = std::pair<double, double>;
    EXPECT_THAT(fades, testing::ElementsAre(Fade(0, 0.2), Fade(1, 0.4)));
    EXPECT_THAT(titles, testing::ElementsAre("Inspirator", ".", ".  .", ".  .  .", "Inspirator"));
    EXPECT_TRUE(inspirator.button.isEnabled());
    EXPECT_EQ(inspirator.titleAlpha(), 1);
}

TEST_F(InspiratorTest, MayGoWhileItCounts) {
    double sceneAlpha = 1;
    {
        Inspirator inspirator(services);
        inspirator.fadeScene = [&](double alpha, double) { sceneAlpha = alpha; };
        inspirator.button.click();
        EXPECT_EQ(sceneAlpha, 0);
    }
    EXPECT_EQ(sceneAlpha, 1) << "the scene stays invisible";
    const environments::SNEPtr before = model.sceneData();
    world.runLoop.runFor(2);
    EXPECT_EQ(model.sceneData(), before);
}

} // namespace
} // namespace zelvo::ui
