// SPDX-License-Identifier: MIT
// What a press records, and how presses and releases work together.
#include "catalogue/CatalogueFixture.h"

#include <gmock/gmock.h>

#include <set>

namespace zelvo::catalogue {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ButtonTest : public test::CatalogueTest {
protected:
    ButtonTest() {
        plays = true;
        clock = 1;
    }
};

TEST_F(ButtonTest, HaveFacesAndTitlesOfTheirOwn) {
    std::set<std::string_view> titles;
    for (const Tab& tab : tabs()) {
        EXPECT_EQ(tabNamed(tab.shortTitle), &tab) << "two tabs are named " << tab.shortTitle;
        const auto buttons = tab.buttons();
        EXPECT_LE(buttons.size(), 9U) << tab.shortTitle << ": the digits play them";
        for (const Button& button : buttons) {
            EXPECT_NE(button.face.image.empty(), button.face.label.empty()) << button.title;
            EXPECT_TRUE(titles.insert(button.title).second) << button.title;
        }
    }
    EXPECT_EQ(tabNamed("TXT")->field, "MID");
    EXPECT_EQ(tabNamed("MID"), nullptr);
}

TEST_F(ButtonTest, NeedNoLetters) {
    nodes.textNode1->setText("");
    nodes.textNode2->setText("");
    for (const Tab& tab : tabs()) {
        for (const Button& button : tab.buttons()) {
            press(tab.shortTitle, button.title);
            goTo(0.5);
        }
    }
    press("IN3", "Stepped Left In"); // without letters, the others wait for one stagger
    goTo(0.05 * 0.54);
    expectAt(*nodes.mediaNode, {-800, 0, 0});
    goTo(0.05 * 0.54 + 1.55 * factor + 0.001);
    expectAt(*nodes.mediaNode, glm::vec3(0));
}

TEST_F(ButtonTest, RecordWhatWasChosenAtThePress) {
    affected = {nodes.textNode1, nodes.textNode2};
    press("IN1", "Left In");
    EXPECT_THAT(recordedTitles(), ElementsAre("Left In (TX1, TX2)"));
    EXPECT_EQ(controller.undoManager.undoTitle(), "Left In (TX1, TX2)");
    goTo(3);

    // A replay at another speed and with other nodes chosen repeats the same action.
    factor = 0.2125;
    affected = {nodes.mediaNode};
    replay();
    expectAt(*nodes.textNode2, {-800, 0, 0});
    goTo(0.85 * 0.9);
    EXPECT_LT(nodes.textNode2->position.value().x, -1);
    goTo(0.85);
    expectAt(*nodes.textNode2, glm::vec3(0));
    expectAt(*nodes.mediaNode, glm::vec3(0));
}

TEST_F(ButtonTest, LookTheirLettersUpInEachReplay) {
    press("IN3", "Stepped Left In");
    const std::weak_ptr<content::CharNode> former = nodes.textNode1->letters()[0];
    nodes.textNode1->setText("XY");
    EXPECT_TRUE(former.expired()) << "neither the record nor a waiting letter keeps letters alive";
    replay();
    EXPECT_EQ(nodes.textNode1->letters()[1]->opacity.value(), 0);
}

TEST_F(ButtonTest, HoldAndLetGoAreOneActOfTheUser) {
    for (const Tab& tab : tabs()) {
        for (const Button& button : tab.buttons()) {
            if (!button.isHold())
                continue;
            for (int i = 0; i < 2; ++i) {
                begin(button);
                clock += 1;
                end(button);
            }
            const auto& records = controller.recordedActions();
            ASSERT_EQ(records.size(), 4U) << button.title;
            EXPECT_EQ(records[2]->identifier, records[3]->identifier) << button.title;
            EXPECT_NE(records[0]->identifier, records[2]->identifier) << button.title;
            EXPECT_THAT(recordedTitles()[3], IsEmpty()) << button.title;
            controller.undo();
            EXPECT_EQ(records.size(), 2U) << button.title;
            controller.undo();
        }
    }
}

TEST_F(ButtonTest, ZoomInFromWhereTheWayBackIs) {
    const Button zoom = tabNamed("CAM")->buttons().front();
    const scene::SCNNode& special = *nodes.cameraSpecialPerspectiveNode;
    begin(zoom);
    goTo(1);
    end(zoom);
    goTo(0.1);
    const glm::vec3 onTheWay = special.position;
    begin(zoom);
    goTo(0.5 * 0.15 * factor);
    expectAt(special, (onTheWay + glm::vec3(0, 2, -105)) / 2.0f);
    goTo(1);
    expectAt(special, {0, 2, -105}); // the return is cancelled
}

TEST_F(ButtonTest, BeginANewRunInStillAir) {
    press("CAM", "Turbulence Cam");
    goTo(1);
    EXPECT_EQ(nodes.cameraWiggle->position.value(), glm::vec3(0)) << "it only shows";
    controller.resetAll(actions::CameraHandles::include);
    EXPECT_THAT(nodes.cameraWiggle->animationKeys(), IsEmpty());
}

} // namespace
} // namespace zelvo::catalogue
