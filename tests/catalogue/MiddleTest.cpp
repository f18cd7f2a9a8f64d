// SPDX-License-Identifier: MIT
// Moves of letters and rotations of the whole stage, which run over other animations.
#include "catalogue/CatalogueFixture.h"

#include <gmock/gmock.h>

namespace zelvo::catalogue {
namespace {

using glm::vec3;
using testing::ElementsAre;
using testing::IsEmpty;

class MiddleTest : public test::CatalogueTest {
protected:
    MiddleTest() {
        plays = true;
        nodes.textNode1->setText("ABCDE");
    }
};

TEST_F(MiddleTest, FansLettersOutAndBackTheOtherWayWhileTheyLean) {
    affected = {nodes.textNode1};
    const auto expectFan = [this](double seconds, const std::vector<float>& degrees) {
        goTo(seconds);
        for (std::size_t i = 0; i < degrees.size(); ++i)
            expectTurned(*nodes.textNode1->letters().at(i), {degrees[i], 0, 0});
    };
    press("TXT", "BendLetters");
    // five letters are spread as if there were six
    expectFan(0.175 * factor, {70, 42, 14, -14, -42});
    expectFan(0.525 * factor, {-70, -42, -14, 14, 42});
    press("TXT", "BendLetters"); // the first letter leans to the negative side
    expectFan(0.175 * factor, {-70, -42, -14, 14, 42});
    expectFan(2, {0, 0, 0, 0, 0});
    nodes.textNode1->setText("A");
    press("TXT", "BendLetters");
    expectFan(0.175 * factor, {70});
}

TEST_F(MiddleTest, SwingsASecondTextAloneAsTheFirst) {
    affected = {nodes.textNode2, nodes.imageNode};
    press("TXT", "Wave");
    goTo(0.15 * factor);
    expectTurned(*nodes.textNode2->contentNode, {0, 25, 0});
}

TEST_F(MiddleTest, TakesTextsOnlyAndLeavesWhatGoesOn) {
    affected = {nodes.imageNode, nodes.mediaNode};
    press("TXT", "Punch");
    EXPECT_THAT(recordedTitles(), IsEmpty());
    EXPECT_EQ(controller.currentIdentifier, 0);
    affected.push_back(nodes.textNode2);
    press("IN1", "Left In");
    goTo(0.2);
    const float before = nodes.textNode2->position.value().x;
    press("TXT", "Punch");
    EXPECT_EQ(nodes.textNode2->position.value().x, before);
    EXPECT_THAT(recordedTitles(), ElementsAre("Left In (IMG, OBJ, TX2)", "Punch (TX2)"));
}

TEST_F(MiddleTest, AddsUpTurnsThatOverlap) {
    affected.clear();
    press("ROT", "Rotate Y 180");
    goTo(0.5 * factor);
    press("ROT", "Rotate Y 180");
    goTo(factor);
    expectTurned(*nodes.mediaHolderNode->yAxisNode, {0, 360, 0});
    EXPECT_THAT(recordedTitles(), ElementsAre("Rotate Y 180", "Rotate Y 180"));
}

} // namespace
} // namespace zelvo::catalogue
