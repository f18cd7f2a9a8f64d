// SPDX-License-Identifier: MIT
#include "catalogue/FullFrame.h"

#include "catalogue/CatalogueFixture.h"

#include <gmock/gmock.h>

namespace zelvo::catalogue {
namespace {

using testing::ElementsAre;

class FullFrameTest : public test::CatalogueTest {
protected:
    FullFrameTest() {
        plays = true;
        clock = 3;
    }

    /// The functions of the passes that the view draws.
    [[nodiscard]] std::vector<std::string> drawn() const {
        std::vector<std::string> functions;
        if (view.technique) {
            for (const auto& pass : view.technique->passes)
                functions.push_back(pass.function);
        }
        return functions;
    }

    std::vector<Button> buttons = tabNamed("FX1")->buttons();
};

TEST_F(FullFrameTest, LastAsLongAsTheyAreHeldInTheOrderOfPressing) {
    const Button glitch = glitchButton({.label = "Glitch"});
    begin(buttons.at(2));
    begin(glitch);
    begin(buttons.at(1));
    EXPECT_THAT(
        drawn(),
        ElementsAre("exposureFragmentShader", "glitchFragmentShader", "invertFragmentShader"));
    end(buttons.at(2));
    EXPECT_THAT(drawn(), ElementsAre("glitchFragmentShader", "invertFragmentShader"));
    end(buttons.at(2)); // nothing is held
    EXPECT_THAT(recordedTitles(), ElementsAre("Exposure", "Wobble", "Invert", ""));
    end(glitch);
    end(buttons.at(1));
    EXPECT_EQ(view.technique, nullptr);
}

TEST_F(FullFrameTest, CanBeHeldTwice) {
    const auto others = tabNamed("FX1")->buttons();
    begin(buttons.at(4));
    begin(others.at(4));
    end(buttons.at(4));
    EXPECT_THAT(drawn(), ElementsAre("colorShiftFragmentShader"));
}

TEST_F(FullFrameTest, ComeAndGoAgainInAReplayThatBeginsWithoutThem) {
    begin(buttons.at(1));
    clock = 4;
    end(buttons.at(1));
    begin(buttons.at(2)); // still held when the run ends
    controller.markAllNotRun();
    tick(0);
    EXPECT_EQ(view.technique, nullptr);
    tick(3);
    EXPECT_THAT(drawn(), ElementsAre("invertFragmentShader"));
    tick(4);
    EXPECT_THAT(drawn(), ElementsAre("exposureFragmentShader"));
    controller.undo();
    EXPECT_EQ(controller.recordedActions().size(), 2U);
    controller.deleteAll();
    EXPECT_EQ(view.technique, nullptr) << "a forgotten performance leaves nothing on";
}

TEST_F(FullFrameTest, HideWhatIsChosenAtThePressAndShowWhatIsAtTheRelease) {
    affected = {nodes.textNode1, nodes.mediaNode};
    begin(buttons.at(5));
    expectAt(*nodes.textNode1->shyNode, {10000, 10000, 0});
    affected = {nodes.textNode1};
    end(buttons.at(5));
    expectAt(*nodes.textNode1->shyNode, glm::vec3(0));
    expectAt(*nodes.mediaNode->shyNode, {10000, 10000, 0});
    EXPECT_THAT(recordedTitles(), ElementsAre("Hide (TX1, OBJ)", ""));
    EXPECT_EQ(
        controller.recordedActions()[0]->identifier, controller.recordedActions()[1]->identifier);
}

} // namespace
} // namespace zelvo::catalogue
