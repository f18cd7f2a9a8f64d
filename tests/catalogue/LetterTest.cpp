// SPDX-License-Identifier: MIT
// Animations of letters: their order, their waits and where they go.
#include "catalogue/CatalogueFixture.h"

#include <array>
#include <cmath>
#include <numbers>
#include <numeric>
#include <optional>
#include <vector>

namespace zelvo::catalogue {
namespace {

using content::CharNodePtr;
using glm::vec3;

class LetterTest : public test::CatalogueTest {
protected:
    LetterTest() {
        nodes.textNode1->setText("ABCDE");
        affected = {nodes.textNode1, nodes.mediaNode};
    }

    [[nodiscard]] std::vector<CharNodePtr> letters() const { return nodes.textNode1->letters(); }

    /// Goes on frame by frame and tells when, in seconds, and where each letter was first seen to
    /// have left the state that `isWaiting` describes.
    struct Start {
        double at = -1;
        vec3 place{0};
    };

    template <class Waiting> std::vector<Start> watchStarts(double until, Waiting isWaiting) {
        std::vector<Start> starts(letters().size());
        for (int frame = 0; frame * kFrame < until; ++frame) {
            const double t = frame * kFrame;
            goTo(t);
            for (std::size_t i = 0; i < starts.size(); ++i) {
                const CharNodePtr letter = letters()[i];
                if (starts[i].at < 0 && !isWaiting(*letter))
                    starts[i] = {t, letter->position};
            }
        }
        return starts;
    }

    /// As expectAt, allowing for the solver's five steps where a curve is steep.
    static void expectNear(const scene::SCNNode& node, const vec3& place) {
        EXPECT_LT(glm::distance(node.position.value(), place), 8)
            << node.position.value().x << ' ' << node.position.value().y << ' '
            << node.position.value().z;
    }

    /// A swing that grows towards its end, with a period of 1.25.
    static double swelling(double t) {
        const double left = t - 1;
        const double swing = std::cos(2 * std::numbers::pi * left / 1.25);
        return t == 0 ? 0 : std::pow(2, 10 * left) * swing;
    }

    static bool isUnseen(const content::CharNode& letter) { return letter.opacity.value() == 0; }

    static bool isAtPlace(const content::CharNode& letter) {
        return letter.position.value() == *letter.originalPosition;
    }

    static std::vector<double> sortedTimes(const std::vector<Start>& starts) {
        std::vector<double> times;
        times.reserve(starts.size());
        for (const Start& start : starts)
            times.push_back(start.at);
        std::ranges::sort(times);
        return times;
    }
};

/// Letters that come one after another. Where a coordinate of the start is absent it is the
/// letter's own.
struct ComingRow {
    const char* tab;
    const char* title;
    double stagger, leadShare; // seconds; share of d
    double factor;
    std::optional<float> x, y, z;
    bool isShuffled;
};

TEST_F(LetterTest, ComeOneAfterAnother) {
    constexpr auto kNone = std::nullopt;
    const auto rows = std::to_array<ComingRow>({
        {"IN3", "Stepped Left In",  0.05, 0,     1.55, -800,  kNone, kNone, false},
        {"IN3", "Stepped Right In", 0.05, 0,     1.55, 800,   kNone, kNone, false},
        {"IN4", "Falling In",       0.05, 0,     1.65, kNone, 800,   kNone, false},
        {"IN4", "Dropping In",      0.05, 0.076, 1.45, kNone, kNone, 800,   true },
    });
    for (const double base : {0.85, 0.2125}) {
        factor = base;
        for (const ComingRow& row : rows) {
            SCOPED_TRACE(std::string(row.title) + " at " + std::to_string(base));
            const double d = row.factor * base;
            press(row.tab, row.title);
            const auto starts = watchStarts(0.5, isUnseen);
            const auto times = sortedTimes(starts);
            for (std::size_t i = 0; i < times.size(); ++i) {
                // The stagger keeps its seconds; a letter begins with the frame after its wait, and
                // shows with the next.
                const double wait = row.leadShare * d + static_cast<double>(i) * row.stagger;
                EXPECT_GE(times[i], wait);
                EXPECT_LE(times[i], wait + 3.1 * kFrame);
                const vec3 place = *letters()[i]->originalPosition;
                const vec3 start(
                    row.x.value_or(place.x), row.y.value_or(place.y), row.z.value_or(place.z));
                // It has travelled for a frame or two when it is first seen.
                const float gone =
                    glm::distance(starts[i].place, start) / glm::distance(place, start);
                EXPECT_LT(gone, base > 0.5 ? 0.6f : 1.3f);
            }
            EXPECT_EQ(std::ranges::is_sorted(starts, {}, &Start::at), !row.isShuffled);
            goTo(d + 0.6);
            for (const CharNodePtr& letter : letters()) {
                expectAt(*letter, *letter->originalPosition);
                EXPECT_EQ(letter->opacity.value(), 1);
            }
        }
    }
}

/// What comes or goes with the letters waits, and then moves for d.
struct CompanyRow {
    const char* tab;
    const char* title;
    double wait; // seconds, for five letters
    double factor;
    test::Reference curve;
    vec3 start, end;
};

TEST_F(LetterTest, HaveCompanyThatWaits) {
    const vec3 home(0);
    const auto stepped = test::spring(55, 1.6, 480, 25);
    const auto rising = test::spring(57, 1.3, 480, 25);
    const auto dropping = test::spring(40, 1.2, 480, 25);
    const auto falling = test::bezier(0.865, 0, 1, 0);
    const auto leaving = test::bezier(0.72, -0.3, 0.66, 0.73);
    const auto rows = std::to_array<CompanyRow>({
        {"IN3", "Stepped Right In", 6 * 0.05 * 0.54, 1.55,       stepped,  {800, 0, 0},  home        },
        {"IN4", "Falling In",       6 * 0.05 * 0.8,  1.65,       rising,   {0, -800, 0}, home        },
        {"IN4", "Dropping In",      0,               1.45 * 1.5, dropping, {0, 0, 800},  home        },
        {"OT2", "Falling Out",      5 * 0.09 * 0.48, 0.75,       falling,  home,         {0, -800, 0}},
        {"OT2", "Accel 1 Out",      6 * 0.05,        0.79,       swelling, home,         {0, 0, 800} },
        {"OT2", "Drop Left Out",    6 * 0.04 * 0.91, 0.7,        leaving,  home,         {800, 0, 0} },
    });
    for (const CompanyRow& row : rows) {
        SCOPED_TRACE(row.title);
        press(row.tab, row.title);
        for (const double share : {0.0, 0.02, 0.25, 0.5, 1.0}) {
            goTo(row.wait + share * row.factor * 0.85);
            const auto done = static_cast<float>(row.curve(share));
            expectNear(*nodes.mediaNode, glm::mix(row.start, row.end, done));
        }
        if (std::string_view(row.title) == "Falling Out")
            expectTurned(*nodes.mediaNode, {0, 20, -30});
    }
}

/// How one letter travels and fades, in shares of d from its start.
struct TravelRow {
    const char* tab;
    const char* title;
    double leadShare, factor;
    test::Reference curve;
    vec3 (*from)(vec3 place);
    vec3 (*to)(vec3 place);
    double fadeAt, fadeLength;
    bool fadesIn;
};

TEST_F(LetterTest, FollowTheirCurves) {
    nodes.textNode1->setText("A");
    const auto own = [](vec3 place) { return place; };
    const auto left = [](vec3 place) { return vec3(-800, place.y, place.z); };
    const auto above = [](vec3 place) { return vec3(place.x, 800, place.z); };
    const auto below = [](vec3 place) { return vec3(place.x, -800, place.z); };
    const auto near = [](vec3 place) { return vec3(place.x, place.y, 800); };
    const auto right = [](vec3 place) { return place + vec3(800, 0, 0); };
    const auto stepped = test::spring(55, 1.6, 480, 25);
    const auto dropping = test::spring(40, 1.2, 480, 25);
    const auto falling = test::spring(37, 1.3, 480, 25);
    const auto plunging = test::bezier(0.8, 0, 1, 0);
    const auto leaving = test::bezier(0.82, -0.4, 0.66, 0.73);
    const auto rows = std::to_array<TravelRow>({
        {"IN3", "Stepped Left In", 0,     1.55, stepped,  left,  own,   0,    0.05, true },
        {"IN4", "Dropping In",     0.076, 1.45, dropping, near,  own,   0,    0.1,  true },
        {"IN4", "Falling In",      0,     1.65, falling,  above, own,   0,    0.07, true },
        {"OT2", "Falling Out",     0,     0.75, plunging, own,   below, 0.85, 0.13, false},
        {"OT2", "Accel 1 Out",     0,     0.79, swelling, own,   near,  0.85, 0.13, false},
        {"OT2", "Drop Left Out",   0,     0.7,  leaving,  own,   right, 0.75, 0.22, false},
    });
    for (const double base : {0.85, 1.7}) {
        factor = base;
        for (const TravelRow& row : rows) {
            SCOPED_TRACE(row.title);
            const double d = row.factor * base;
            press(row.tab, row.title);
            const double start = row.leadShare * d;
            goTo(start);
            beginActions(); // the move, which the end of the wait has started
            const content::CharNode& letter = *letters()[0];
            const vec3 place = *letter.originalPosition;
            for (const double share : {0.0, 0.03, 0.25, 0.5, 0.9, 1.0}) {
                goTo(start + share * d);
                const auto done = static_cast<float>(row.curve(share));
                expectNear(letter, glm::mix(row.from(place), row.to(place), done));
                const double faded = std::clamp((share - row.fadeAt) / row.fadeLength, 0.0, 1.0);
                EXPECT_NEAR(letter.opacity.value(), row.fadesIn ? faded : 1 - faded, 0.02) << share;
            }
        }
    }
}

struct LeavingRow {
    const char* title;
    double stagger;
    double factor;
    std::optional<float> x, y, z; // absolute, where not the letter's own
    float dx;
    bool isShuffled;
};

TEST_F(LetterTest, LeaveOneAfterAnother) {
    constexpr auto kNone = std::nullopt;
    const auto rows = std::to_array<LeavingRow>({
        {"Falling Out",   0.09, 0.75, kNone, -800,  kNone, 0,   true },
        {"Accel 1 Out",   0.05, 0.79, kNone, kNone, 800,   0,   true },
        {"Drop Left Out", 0.04, 0.7,  kNone, kNone, kNone, 800, false},
    });
    for (const LeavingRow& row : rows) {
        SCOPED_TRACE(row.title);
        const double d = row.factor * 0.85;
        press("OT2", row.title);
        const auto starts = watchStarts(4 * row.stagger + 0.15, isAtPlace);
        const auto times = sortedTimes(starts);
        for (std::size_t i = 0; i < times.size(); ++i) {
            EXPECT_GE(times[i], static_cast<double>(i) * row.stagger);
            EXPECT_LE(times[i], static_cast<double>(i) * row.stagger + 3.1 * kFrame);
        }
        EXPECT_EQ(std::ranges::is_sorted(starts, {}, &Start::at), !row.isShuffled);
        goTo(4 * row.stagger + d + 3 * kFrame);
        for (const CharNodePtr& letter : letters()) {
            const vec3 place = *letter->originalPosition;
            expectAt(
                *letter,
                {row.x.value_or(place.x) + row.dx,
                 row.y.value_or(place.y),
                 row.z.value_or(place.z)});
            EXPECT_EQ(letter->opacity.value(), 0);
            const vec3 angles = glm::degrees(letter->eulerAngles());
            EXPECT_LE(
                std::max({std::abs(angles.x), std::abs(angles.y), std::abs(angles.z)}), 18.1f);
        }
        press("IN1", "Left In"); // brings the letters back
        for (const CharNodePtr& letter : letters()) {
            EXPECT_TRUE(isAtPlace(*letter));
            EXPECT_EQ(letter->opacity.value(), 1);
        }
    }
}

TEST_F(LetterTest, ScatterWithinTheirRanges) {
    const auto angleIsWithin = [](float radians, float low, float high) {
        const float angle = std::abs(glm::degrees(radians));
        return angle >= low - 0.1f && angle <= high + 0.1f;
    };
    for (unsigned seed = 0; seed < 10; ++seed) {
        SCOPED_TRACE(seed);
        foundation::seedRandom(seed);
        press("IN3", "Implode In");
        for (const CharNodePtr& letter : letters()) {
            const vec3 offset = letter->position.value() - *letter->originalPosition;
            EXPECT_LE(std::max(std::abs(offset.x), std::abs(offset.y)), 600.1f);
            EXPECT_NEAR(offset.z, 0, 1e-3f);
            for (int axis = 0; axis < 3; ++axis)
                EXPECT_TRUE(angleIsWithin(letter->eulerAngles()[axis], 45, 360));
        }
        goTo(0.93 * 1.3 * 0.85);
        for (const CharNodePtr& letter : letters())
            expectAt(*letter, *letter->originalPosition);

        press("IN3", "Compose In");
        for (const CharNodePtr& letter : letters()) {
            EXPECT_TRUE(angleIsWithin(letter->eulerAngles().x, 45, 110));
            EXPECT_TRUE(angleIsWithin(letter->eulerAngles().z, 45, 110));
            EXPECT_EQ(letter->eulerAngles().y, 0);
        }
        goTo(1.3 * 0.85);
        for (const CharNodePtr& letter : letters())
            expectTurned(*letter, vec3(0));

        press("OT3", "Explo Out");
        const double d = 0.97 * 0.85;
        goTo(0.65 * d); // 0.2 of the 0.4 d that the fade takes
        EXPECT_NEAR(letters()[3]->opacity.value(), 0.5f, 0.01f);
        goTo(d);
        for (const CharNodePtr& letter : letters()) {
            const vec3 offset = glm::abs(letter->position.value() - *letter->originalPosition);
            EXPECT_LE(std::max({offset.x, offset.y, offset.z}), 700.1f);
            for (int axis = 0; axis < 3; ++axis)
                EXPECT_TRUE(angleIsWithin(letter->eulerAngles()[axis], 45, 360));
        }

        press("OT3", "Front Random Out");
        goTo(0.9 * 1.55 * 0.85);
        EXPECT_NE(letters()[0]->eulerAngles(), vec3(0));
        goTo(1.55 * 0.85 + kFrame);
        expectTurned(*letters()[0], vec3(0)); // snaps upright at the end
        expectAt(*nodes.textNode1, {0, 0, 800});
    }
}

TEST_F(LetterTest, NeedNoLetters) {
    nodes.textNode1->setText("");
    for (const Tab& tab : tabs()) {
        for (const Button& button : tab.buttons()) {
            press(tab.shortTitle, button.title);
            goTo(0.5);
        }
    }
    press("IN3", "Stepped Left In"); // with no letters the company waits for one stagger
    goTo(0.05 * 0.54);
    expectAt(*nodes.mediaNode, {-800, 0, 0});
    goTo(0.05 * 0.54 + 1.55 * 0.85 + 0.001);
    expectAt(*nodes.mediaNode, vec3(0));
}

TEST_F(LetterTest, AreLookedUpAnewByAReplay) {
    plays = true;
    press("IN3", "Stepped Left In");
    const std::weak_ptr<content::CharNode> former = letters()[0];
    nodes.textNode1->setText("XY");
    EXPECT_TRUE(former.expired()) << "neither the record nor a waiting letter keeps letters alive";
    controller.markAllNotRun();
    tick(9);
    beginActions();
    EXPECT_EQ(letters()[1]->opacity.value(), 0);
}

} // namespace
} // namespace zelvo::catalogue
