// SPDX-License-Identifier: MIT
// What happens while the content stands on stage: letters, and turns of the whole.
#include "catalogue/CatalogueFixture.h"

#include <gmock/gmock.h>

#include <array>
#include <cmath>

namespace zelvo::catalogue {
namespace {

using actions::placeOf;
using content::CharNodePtr;
using glm::vec3;
using testing::ElementsAre;
using testing::IsEmpty;

class MiddleTest : public test::CatalogueTest {
protected:
    MiddleTest() { nodes.textNode1->setText("ABCDE"); }

    [[nodiscard]] CharNodePtr letter(std::size_t i) const {
        return nodes.textNode1->letters().at(i);
    }

    void replay() {
        controller.markAllNotRun();
        tick(2);
        beginActions();
        pressedAt = sceneTime;
    }

    /// Presses and goes on to where the first letter, which waits for 0 seconds, has begun too.
    void pressAndBegin(std::string_view tab, std::string_view title) {
        press(tab, title);
        beginActions();
    }
};

/// How far something is turned after a share of d.
struct Knot {
    const char* title;
    double factor;
    bool isWholeText; ///< the text's content, else its first letter
    double share;
    vec3 degrees;
};

TEST_F(MiddleTest, TurnsLettersAndTexts) {
    // Quarters of a step along the sine curves: sin 22.5 deg = 0.38268, 1 - cos 45 deg = 0.29289.
    constexpr auto kKnots = std::to_array<Knot>({
        {"RotateLettersY", 1.0,  false, 0,       {0, 360, 0}     },
        {"RotateLettersY", 1.0,  false, 0.2,     {0, 296.9f, 0}  }, // 1 - cos(0.38268 * 90 deg) is gone
        {"RotateLettersY", 1.0,  false, 0.4,     {0, 159.85f, 0} }, // 1 - cos(0.70711 * 90 deg) is gone
        {"RotateLettersY", 1.0,  false, 0.8,     {0, 0, 0}       },
        {"RotateLetters",  0.75, false, 0,       {-360, 0, 0}    },
        {"RotateLetters",  0.75, false, 0.1625,  {-222.24f, 0, 0}},
        {"RotateLetters",  0.75, false, 0.325,   {-105.44f, 0, 0}},
        {"RotateLetters",  0.75, false, 0.65,    {0, 0, 0}       },
        {"Wave",           1.0,  true,  0,       {0, 0, 0}       },
        {"Wave",           1.0,  true,  0.075,   {0, 7.322f, 0}  },
        {"Wave",           1.0,  true,  0.15,    {0, 25, 0}      },
        {"Wave",           1.0,  true,  0.3,     {0, 0, 0}       },
        {"Wave",           1.0,  true,  0.45,    {0, -25, 0}     },
        {"Wave",           1.0,  true,  0.573,   {0, -7.322f, 0} },
        {"Wave",           1.0,  true,  0.696,   {0, 0, 0}       },
        {"BendLetters",    1.0,  false, 0.0875,  {20.5f, 0, 0}   },
        {"BendLetters",    1.0,  false, 0.175,   {70, 0, 0}      },
        {"BendLetters",    1.0,  false, 0.35,    {0, 0, 0}       },
        {"BendLetters",    1.0,  false, 0.525,   {-70, 0, 0}     },
        {"BendLetters",    1.0,  false, 0.65625, {-20.5f, 0, 0}  },
        {"BendLetters",    1.0,  false, 0.7875,  {0, 0, 0}       },
    });
    affected = {nodes.textNode1, nodes.mediaNode};
    for (const double base : {0.85, 2.55}) {
        factor = base;
        for (const Knot& knot : kKnots) {
            SCOPED_TRACE(std::string(knot.title) + " at " + std::to_string(knot.share));
            pressAndBegin("TXT", knot.title);
            goTo(knot.share * knot.factor * base);
            const scene::SCNNode& turned =
                knot.isWholeText ? static_cast<scene::SCNNode&>(*nodes.textNode1->contentNode)
                                 : *letter(0);
            expectTurned(turned, knot.degrees, 0.1f);
            expectAt(turned, knot.isWholeText ? vec3(0) : placeOf(*letter(0)));
            goTo(2 * base);
        }
    }
}

TEST_F(MiddleTest, PunchesOneLetterAfterAnotherTowardsTheViewer) {
    affected = {nodes.textNode1};
    const auto hop = test::bezier(0, 0, 0.5, 1.3);
    for (const double base : {0.85, 0.425}) {
        factor = base;
        letter(0)->originalPosition = vec3(5, 7, 10);
        letter(0)->position = vec3(5, 7, 10);
        pressAndBegin("TXT", "Punch");
        for (const double share : {0.25, 0.5, 0.75, 1.0}) {
            // The whole runs along (1 - cos) / 2, each half of it along the hop.
            const double bent = (1 - std::cos(share * 3.14159265)) / 2;
            const double z = bent < 0.5 ? 10 + 75 * hop(2 * bent) : 85 - 75 * hop(2 * bent - 1);
            goTo(share * 0.3 * base);
            expectAt(*letter(0), vec3(5, 7, z));
        }
    }
    goTo(2);
    pressAndBegin("TXT", "Punch");
    goTo(0.09);
    EXPECT_GT(letter(1)->position.value().z, 1); // waited for 0.045 seconds at any speed
    EXPECT_EQ(letter(2)->position.value().z, letter(2)->originalPosition->z);
}

TEST_F(MiddleTest, BurstsIntoRandomPlacesThatEachReplayDrawsAnew) {
    affected = {nodes.textNode1};
    plays = true;
    clock = 1;
    factor = 1.7;
    const double d = 0.8 * 1.7;
    const auto isWholeWithin = [](float value, float low, float high) {
        return std::abs(value - std::round(value)) < 0.01f && value > low - 0.01f &&
               value < high + 0.01f;
    };
    std::array<vec3, 2> offsets{};
    for (vec3& offset : offsets) {
        if (&offset == offsets.begin())
            press("TXT", "LettersExplosion");
        else
            replay();
        const vec3 place = placeOf(*letter(3));
        goTo(0.5 * d);
        const vec3 burst = letter(3)->position.value() - place;
        const vec3 turn = glm::degrees(letter(3)->eulerAngles());
        for (int axis = 0; axis < 3; ++axis) {
            EXPECT_TRUE(isWholeWithin(burst[axis], -400, 399)) << burst[axis];
            EXPECT_TRUE(isWholeWithin(turn[axis], -270, 269)) << turn[axis];
        }
        goTo(0.75 * d); // a quarter of the swing back: 2^-2.5 sin 45 deg = 1/8 is left
        expectAt(*letter(3), place + burst / 8.0f);
        expectTurned(*letter(3), turn / 8.0f, 0.1f);
        goTo(d); // half of it: the swing passes home
        expectAt(*letter(3), place);
        expectTurned(*letter(3), vec3(0), 0.1f);
        goTo(1.5 * d);
        expectAt(*letter(3), place);
        offset = burst;
    }
    EXPECT_NE(offsets[0], offsets[1]);
}

TEST_F(MiddleTest, FansLettersOutAndBackTheOtherWayWhileTheyLean) {
    affected = {nodes.textNode1};
    const auto expectFan = [this](double seconds, const std::vector<float>& degrees) {
        goTo(seconds);
        for (std::size_t i = 0; i < degrees.size(); ++i)
            expectTurned(*letter(i), {degrees[i], 0, 0}, 0.1f);
    };
    press("TXT", "BendLetters");
    expectFan(0.175 * factor, {70, 42, 14, -14, -42}); // five letters fan as six
    expectFan(0.525 * factor, {-70, -42, -14, 14, 42});
    press("TXT", "BendLetters"); // the first leans to the negative side
    expectFan(0.175 * factor, {-70, -42, -14, 14, 42});
    expectFan(2, {0, 0, 0, 0, 0});
    nodes.textNode1->setText("A");
    press("TXT", "BendLetters");
    expectFan(0.175 * factor, {70});
    nodes.textNode1->setText("");
    press("TXT", "BendLetters");
}

TEST_F(MiddleTest, SwingsBothTextsInMirror) {
    press("TXT", "Wave");
    goTo(0.15 * factor);
    expectTurned(*nodes.textNode1->contentNode, {0, 25, 0}, 0.1f);
    expectTurned(*nodes.textNode2->contentNode, {0, -25, 0}, 0.1f);
    affected = {nodes.textNode2, nodes.imageNode};
    press("TXT", "Wave");
    goTo(0.15 * factor);
    expectTurned(*nodes.textNode2->contentNode, {0, 25, 0}, 0.1f);
}

TEST_F(MiddleTest, TakesTextsOnlyAndLeavesWhatGoesOn) {
    plays = true;
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

TEST_F(MiddleTest, TurnsTheWholeStageByHalves) {
    const auto& holder = *nodes.mediaHolderNode;

    struct Row {
        const char* title;
        const scene::SCNNode& node;
        vec3 degrees;
    };

    const auto rows = std::to_array<Row>({
        {"Rotate Y -180", *holder.yAxisNode, {0, -180, 0}},
        {"Rotate X 180",  *holder.xAxisNode, {180, 0, 0} },
        {"Rotate Z -180", *holder.zAxisNode, {0, 0, -180}},
        {"Rotate Y 180",  *holder.yAxisNode, {0, 180, 0} },
        {"Rotate X -180", *holder.xAxisNode, {-180, 0, 0}},
        {"Rotate Z 180",  *holder.zAxisNode, {0, 0, 180} },
    });
    const auto curve = test::bezier(1, 0, 0.18, 1);
    affected.clear();
    for (const double base : {0.85, 0.2125}) {
        factor = base;
        for (const Row& row : rows) {
            SCOPED_TRACE(row.title);
            const vec3 from = glm::degrees(row.node.eulerAngles());
            press("ROT", row.title);
            for (const double share : {0.0, 0.25, 0.5, 1.0}) {
                goTo(share * base);
                const auto done = static_cast<float>(curve(share));
                expectTurned(row.node, from + row.degrees * done);
            }
        }
    }
}

TEST_F(MiddleTest, AddsUpTurnsThatOverlap) {
    plays = true;
    press("ROT", "Rotate Y 180");
    goTo(0.5 * factor);
    press("ROT", "Rotate Y 180");
    goTo(factor);
    expectTurned(*nodes.mediaHolderNode->yAxisNode, {0, 360, 0}, 0.1f);
    EXPECT_THAT(recordedTitles(), ElementsAre("Rotate Y 180", "Rotate Y 180"));
}

} // namespace
} // namespace zelvo::catalogue
