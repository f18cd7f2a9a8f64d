// SPDX-License-Identifier: MIT
// Animations of whole nodes, held against places and angles reckoned from their description.
#include "catalogue/CatalogueFixture.h"

#include <array>
#include <vector>

namespace zelvo::catalogue {
namespace {

using glm::vec3;

class WholeNodeTest : public test::CatalogueTest {};

/// A journey from place to place, perhaps with a turn, over `factor` times the base duration.
struct Journey {
    const char* tab;
    const char* title;
    double factor;
    test::Reference curve;
    vec3 from, to;
    vec3 fromDegrees, toDegrees;
};

std::vector<Journey> journeys() {
    const auto in = test::bezier(0.61, 0.81, 0.57, 0.98);
    const auto out = test::bezier(0.3, 0, 0.35, 0);
    const auto copter = test::bezier(0.1, 0.7, 0.5, 0.98);
    const vec3 home(0);
    const auto screw = test::bezier(0.36, 0.6, 0.45, 1);
    const auto elastic = test::spring(42, 1.3, 680, 25);
    const auto sine = test::sineIn();
    return {
        {"IN1", "Left In",      1,    in,           {-800, 0, 0},  home,          home,            home            },
        {"IN1", "Right In",     1,    in,           {800, 0, 0},   home,          home,            home            },
        {"IN1", "Down In",      1,    in,           {0, 800, 0},   home,          home,            home            },
        {"IN1", "Up In",        1,    in,           {0, -800, 0},  home,          home,            home            },
        {"IN1", "Back In",      1,    in,           {0, 0, -800},  home,          home,            home            },
        {"IN1", "Front In",     1,    in,           {0, 0, 800},   home,          home,            home            },
        {"OT1", "Left Out",     1,    out,          home,          {-800, 0, 0},  home,            home            },
        {"OT1", "Right Out",    1,    out,          home,          {800, 0, 0},   home,            home            },
        {"OT1", "Up Out",       1,    out,          home,          {0, 800, 0},   home,            home            },
        {"OT1", "Down Out",     1,    out,          home,          {0, -800, 0},  home,            home            },
        {"OT1", "Back Out",     1,    out,          home,          {0, 0, -800},  home,            home            },
        {"OT1", "Front Out",    1,    out,          home,          {0, 0, 800},   home,            home            },
        {"FLY", "Pass Right",   0.55, test::linear, {-900, 0, 0},  {900, 0, 0},   home,            home            },
        {"FLY", "Pass Left",    0.55, test::linear, {900, 0, 0},   {-900, 0, 0},  home,            home            },
        {"FLY", "Pass Down",    0.8,  test::linear, {0, 900, 0},   {0, -900, 0},  home,            home            },
        {"FLY", "Pass Up",      0.8,  test::linear, {0, -900, 0},  {0, 900, 0},   home,            home            },
        {"FLY",
         "Pass Left Right",     0.9,
         test::linear,
         {-900, -250, -300},
         {900, 250, 300},
         {60, -12, 12},
         {-60, -12, 12}                                                                                            },
        {"FLY",
         "Pass Right Left",     1.1,
         test::linear,
         {900, -700, 200},
         {-900, 700, -200},
         {150, -10, -35},
         {-100, -10, -35}                                                                                          },
        {"IN2", "Copter In",    1,    copter,       {0, -800, 0},  home,          {0, -1040, 0},   home            },
        {"IN2", "Screw In",     1.1,  screw,        {0, 0, -850},  home,          {0, 0, -720},    home            },
        {"IN4", "Back Spin In", 1,    copter,       {0, 0, -1000}, home,          {-180, -540, 0}, home            },
        {"IN4", "Elastic In",   4.5,  elastic,      {0, 0, -800},  home,          home,            home            },
        {"OT2", "Screw Out",    1,    sine,         home,          {0, 0, -800},  {0, 0, 360},     home            },
        {"OT2", "Accel 2 Out",  1.2,  test::linear, home,          {0, 0, 800},   home,            {0, 0, -30}     },
        {"OT3", "Tilt 1 Out",   1.5,  sine,         home,          {0, 0, 700},   home,            {0, 380, 40}    },
        {"OT3", "Tilt 2 Out",   1.2,  sine,         home,          {0, -30, 700}, home,            {-135, -60, -20}},
    };
}

TEST_F(WholeNodeTest, TravelAlongTheirCurves) {
    affected = {nodes.textNode1, nodes.mediaNode};
    for (const double base : {0.85, 0.2125}) {
        factor = base;
        for (const Journey& journey : journeys()) {
            SCOPED_TRACE(std::string(journey.title) + " at " + std::to_string(base));
            press(journey.tab, journey.title);
            for (const double share : {0.0, 0.25, 0.5, 1.0, 1.3}) {
                goTo(share * journey.factor * base);
                const auto done = static_cast<float>(journey.curve(std::min(share, 1.0)));
                for (const core::NodePtr& node : affected) {
                    expectAt(*node, glm::mix(journey.from, journey.to, done));
                    expectTurned(*node, glm::mix(journey.fromDegrees, journey.toDegrees, done));
                }
            }
        }
    }
    expectAt(*nodes.textNode2, vec3(0)); // was not affected
}

/// Where a node is after a share of d, told where its steps meet.
struct Knot {
    const char* title;
    const char* tab;
    double factor;
    double share;
    vec3 place;
    vec3 degrees;
};

TEST_F(WholeNodeTest, PassThroughTheirKnots) {
    constexpr auto kKnots = std::to_array<Knot>({
        {"Flip In",   "IN2", 1.63, 0,    {0, 0, 850},   {-60, -240, 0} },
        {"Flip In",   "IN2", 1.63, 0.22, {0, 0, 30},    {1e6, 0, 0}    },
        {"Flip In",   "IN2", 1.63, 0.32, {1e6, 0, 0},   {0, -6, 0}     },
        {"Flip In",   "IN2", 1.63, 0.76, {0, 0, 7.16f}, {0, -1.757f, 0}},
        {"Flip In",   "IN2", 1.63, 1.2,  {0, 0, 0},     {0, 0, 0}      },
        {"Tease In",  "IN3", 1.16, 0,    {0, 0, -850},  {0, 0, 0}      },
        {"Tease In",  "IN3", 1.16, 0.36, {0, 0, 170},   {-12, -27, 3}  },
        {"Tease In",  "IN3", 1.16, 0.53, {0, 0, -250},  {14, 0, 0}     },
        {"Tease In",  "IN3", 1.16, 0.75, {0, 0, 170},   {-12, 27, -3}  },
        {"Tease In",  "IN3", 1.16, 0.97, {0, 0, 0},     {0, 0, 0}      },
        {"Roll In",   "IN3", 1.3,  0,    {0, 0, 850},   {250, 0, 0}    },
        {"Roll In",   "IN3", 1.3,  0.09, {1e6, 0, 0},   {250, 0, 0}    },
        {"Roll In",   "IN3", 1.3,  0.25, {0, 0, 0},     {1e6, 0, 0}    }, // a quarter of the period
        {"Roll In",   "IN3", 1.3,  1,    {0, 0, 0},     {0, 0, 0}      },
        {"Smooth In", "IN4", 1.8,  0,    {0, -30, 900}, {-75, 56, 20}  },
        {"Smooth In", "IN4", 1.8,  0.6,  {1e6, 0, 0},   {0, 0, 0}      },
        {"Smooth In", "IN4", 1.8,  0.64, {0, 0, -12},   {0, 0, 0}      },
        {"Smooth In", "IN4", 1.8,  1,    {0, 0, 0},     {0, 0, 0}      },
    });
    constexpr float kAnywhere = 1e6;
    affected = {nodes.textNode2};
    for (const double base : {0.85, 2.55}) {
        factor = base;
        for (const Knot& knot : kKnots) {
            SCOPED_TRACE(std::string(knot.title) + " at " + std::to_string(knot.share));
            press(knot.tab, knot.title);
            goTo(knot.share * knot.factor * base);
            if (knot.place.x != kAnywhere)
                expectAt(*nodes.textNode2, knot.place);
            if (knot.degrees.x != kAnywhere)
                expectTurned(*nodes.textNode2, knot.degrees, 0.1f);
        }
    }
}

TEST_F(WholeNodeTest, GoDifferentWaysByNode) {
    struct Row {
        const char* tab;
        const char* title;
        double at; // seconds, at the base duration 0.85
        vec3 text1, text2, image, media;
    };

    const vec3 home(0);
    const auto rows = std::to_array<Row>({
        {"IN2",
         "Diff. Directions Horizontal In",         0,
         {750, 0, 0},
         {-750, 0, 0},
         {0, 800, 0},
         {0, -800, 0}                                                                   },
        {"IN2", "Diff. Directions Horizontal In",  0.85,          home, home, home, home},
        {"IN2",
         "Diff. Directions Vertical In",           0,
         {0, 400, 0},
         {0, -400, 0},
         {0, 0, -800},
         {0, 0, -800}                                                                   },
        {"OT3", "Diff. Directions Horizontal Out", 0,             home, home, home, home},
        {"OT3",
         "Diff. Directions Horizontal Out",        0.765,
         {-750, 0, 0},
         {750, 0, 0},
         {0, 0, -800},
         {0, 0, -800}                                                                   },
        {"OT3",
         "Diff. Directions Vertical Out",          0.765 * 1.095,
         {0, 700, 0},
         {0, -700, 0},
         {0, 0, 800},
         {0, 0, 800}                                                                    },
    });
    for (const Row& row : rows) {
        SCOPED_TRACE(row.title);
        press(row.tab, row.title);
        goTo(row.at);
        expectAt(*nodes.textNode1, row.text1);
        expectAt(*nodes.textNode2, row.text2);
        expectAt(*nodes.imageNode, row.image);
        expectAt(*nodes.mediaNode, row.media);
    }
    // The texts of the vertical entrance are home first.
    press("IN2", "Diff. Directions Vertical In");
    goTo(0.86 * 0.83 * 0.85);
    expectAt(*nodes.textNode1, home);
    EXPECT_LT(nodes.mediaNode->position.value().z, -1);
    // The media of the vertical exit wait a moment.
    press("OT3", "Diff. Directions Vertical Out");
    goTo(0.765 * 0.095);
    expectAt(*nodes.mediaNode, home);
    EXPECT_NE(nodes.textNode1->position.value(), home);
    // Only what is affected moves.
    affected = {nodes.textNode2};
    const vec3 before = nodes.textNode1->position;
    press("OT3", "Diff. Directions Horizontal Out");
    nodes.textNode1->removeAllActions();
    goTo(0.765);
    expectAt(*nodes.textNode1, before);
    expectAt(*nodes.textNode2, {750, 0, 0});
}

TEST_F(WholeNodeTest, ComeOneAfterAnother) {
    press("IN4", "Delayed In"); // each waits 0.23 d longer
    const double d = 0.66 * 0.85;
    goTo(0.2 * d);
    EXPECT_GT(nodes.textNode1->position.value().z, -700);
    expectAt(*nodes.textNode2, {0, 0, -800});
    goTo(0.6 * d);
    EXPECT_GT(nodes.imageNode->position.value().z, -700);
    expectAt(*nodes.mediaNode, {0, 0, -800});
    goTo(1.7 * d);
    for (const core::NodePtr& node : affected)
        expectAt(*node, vec3(0));
}

TEST_F(WholeNodeTest, FadeTheirContent) {
    affected = {nodes.imageNode};
    const scene::SCNNode& content = *nodes.imageNode->contentNode;
    press("IN2", "Fade In");
    expectAt(*nodes.imageNode, {0, 0, -20});
    for (const auto& [share, opacity] : {
             std::pair(0.1, 0.0f), {0.6, 0.5f},
               {1.0, 1.0f}
    }) {
        goTo(share * 0.92 * 0.85);
        EXPECT_NEAR(content.opacity.value(), opacity, 0.01f);
    }
    press("OT2", "Fade Out");
    for (const auto& [share, opacity] : {
             std::pair(0.0, 1.0f), {0.5, 0.5f},
               {1.0, 0.0f}
    }) {
        goTo(share * 0.66 * 0.85);
        EXPECT_NEAR(content.opacity.value(), opacity, 0.01f);
        expectAt(*nodes.imageNode, {0, 0, 10 * share});
    }
    press("IN1", "Left In"); // and the next action shows it again
    EXPECT_EQ(content.opacity.value(), 1);
}

TEST_F(WholeNodeTest, ScatterWithinTheirRanges) {
    affected = {nodes.mediaNode};
    const auto expectScattered = [&] {
        const vec3 place = nodes.mediaNode->position;
        EXPECT_LE(std::abs(place.x), 140.5f);
        EXPECT_LE(std::abs(place.y), 140.5f);
        EXPECT_NEAR(place.z, -800, 0.1f);
        const vec3 angles = glm::degrees(nodes.mediaNode->eulerAngles());
        for (const float angle : {angles.x, angles.y, angles.z}) {
            EXPECT_GE(std::abs(angle), 19.9f);
            EXPECT_LE(std::abs(angle), 180.1f);
        }
        return place;
    };
    std::vector<vec3> places;
    for (unsigned seed = 0; seed < 20; ++seed) {
        SCOPED_TRACE(seed);
        foundation::seedRandom(seed);
        press("IN3", "Implode In");
        places.push_back(expectScattered());
        goTo(1.3 * 0.85);
        expectAt(*nodes.mediaNode, vec3(0));
        press("OT3", "Explo Out");
        goTo(0.97 * 0.85);
        places.push_back(expectScattered());
    }
    EXPECT_NE(places[0], places[2]) << "drawn anew each time";
    press("OT3", "Front Random Out");
    goTo(1.55 * 0.85);
    expectAt(*nodes.mediaNode, {0, 0, 800});
    expectTurned(*nodes.mediaNode, {40, 40, 0});
}

} // namespace
} // namespace zelvo::catalogue
