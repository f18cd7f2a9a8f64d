// SPDX-License-Identifier: MIT
#include "catalogue/CatalogueFixture.h"

#include <gmock/gmock.h>

#include <array>
#include <set>

namespace zelvo::catalogue {
namespace {

using testing::ElementsAre;

class ButtonTest : public test::CatalogueTest {};

TEST_F(ButtonTest, StandInFourteenTabs) {
    std::string row;
    std::set<std::string_view> titles;
    for (const Tab& tab : tabs()) {
        row += std::string(tab.shortTitle) + ' ';
        const auto buttons = tab.buttons();
        EXPECT_EQ(buttons.size(), 6U) << tab.shortTitle;
        for (const Button& button : buttons) {
            EXPECT_NE(button.face.image.empty(), button.face.label.empty()) << button.title;
            EXPECT_TRUE(titles.insert(button.title).second) << button.title;
        }
    }
    EXPECT_EQ(row, "FLY IN1 IN2 IN3 IN4 TXT ROT CAM FX1 FX2 FX3 OT1 OT2 OT3 ");
    EXPECT_EQ(titles.size(), 84U);
    EXPECT_EQ(tabNamed("TXT")->field, "MID");
    EXPECT_EQ(tabNamed("MID"), nullptr);
}

TEST_F(ButtonTest, DoNothingWithoutNodes) {
    plays = true;
    affected.clear();
    for (const Tab& tab : tabs()) {
        if (std::ranges::count(std::to_array({"ROT", "CAM", "FX1", "FX2", "FX3"}), tab.shortTitle))
            continue; // the stage, the camera and the whole picture are always there
        for (const Button& button : tab.buttons())
            press(tab.shortTitle, button.title);
    }
    EXPECT_TRUE(controller.recordedActions().empty());
    EXPECT_EQ(controller.currentIdentifier, 0);
}

TEST_F(ButtonTest, RecordWhatWasChosenAtThePress) {
    plays = true;
    clock = 3;
    affected = {nodes.textNode1, nodes.textNode2};
    press("IN1", "Left In");
    EXPECT_THAT(recordedTitles(), ElementsAre("Left In (TX1, TX2)"));
    EXPECT_EQ(controller.undoManager.undoTitle(), "Left In (TX1, TX2)");
    goTo(3);

    // A replay at another speed, with other nodes chosen, is the same action.
    factor = 0.2125;
    affected = {nodes.mediaNode};
    controller.markAllNotRun();
    tick(3.01);
    beginActions();
    pressedAt = sceneTime;
    expectAt(*nodes.textNode2, {-800, 0, 0});
    goTo(0.85 * 0.9);
    EXPECT_LT(nodes.textNode2->position.value().x, -1);
    goTo(0.85);
    expectAt(*nodes.textNode2, glm::vec3(0));
    expectAt(*nodes.mediaNode, glm::vec3(0));
}

TEST_F(ButtonTest, SupersedeWhatStillRuns) {
    affected = {nodes.textNode1};
    press("IN2", "Screw In");
    goTo(0.3);
    press("IN1", "Up In");
    expectAt(*nodes.textNode1, {0, -800, 0});
    expectTurned(*nodes.textNode1, glm::vec3(0));
    goTo(2);
    expectAt(*nodes.textNode1, glm::vec3(0));
}

} // namespace
} // namespace zelvo::catalogue
