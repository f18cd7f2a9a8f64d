// SPDX-License-Identifier: MIT
#include "ui/UiFixture.h"
#include "ui/menus/SpeedViewController.h"

#include <gmock/gmock.h>

namespace zelvo::test {

namespace {

using testing::ElementsAre;

class SpeedTest : public UiTest {
protected:
    ui::SpeedViewController strip{services};
};

TEST_F(SpeedTest, ChoosesNodesInTheirOwnOrderAndNeverNone) {
    model.setAffectedNodes({nodes.mediaNode});
    strip.viewWillAppear();
    strip.txt2Btn.click();
    EXPECT_THAT(
        model.affectedNodes(),
        ElementsAre(node::NodePtr(nodes.textNode2), node::NodePtr(nodes.mediaNode)));
    strip.medBtn.click();
    strip.txt2Btn.click();
    EXPECT_THAT(
        model.affectedNodes(),
        ElementsAre(
            node::NodePtr(nodes.textNode1),
            node::NodePtr(nodes.textNode2),
            node::NodePtr(nodes.imageNode),
            node::NodePtr(nodes.mediaNode)));
    EXPECT_TRUE(strip.imgBtn.isMySelected());
}

TEST_F(SpeedTest, ReadsTheChoiceWhenItComesOnShow) {
    model.setAffectedNodes({nodes.imageNode});
    strip.setHidden(false);
    EXPECT_TRUE(strip.imgBtn.isMySelected());
    EXPECT_FALSE(strip.txt1Btn.isMySelected());
}

TEST_F(SpeedTest, SetsTheSpeedOfTheButtonAndSaysItsName) {
    std::string said;
    ui::signals().messageSignal.subscribe(
        listening, [&](const std::string& message) { said = message; });
    const auto buttons = strip.speedStackView.arranged();
    ASSERT_EQ(buttons.size(), 7);
    EXPECT_TRUE(buttons[3]->isMySelected());
    buttons[6]->click();
    EXPECT_DOUBLE_EQ(model.animationFactor(), 0.2125);
    EXPECT_EQ(said, "Speed: Fastest");
    EXPECT_FALSE(buttons[3]->isMySelected());
    strip.speedAction(7);
    EXPECT_EQ(said, "Speed: Normal");
}

} // namespace

} // namespace zelvo::test
