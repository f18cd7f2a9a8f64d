// SPDX-License-Identifier: MIT
#include "document/ActEdits.h"

#include "document/PerformanceWriter.h"
#include "document/RecordingWorld.h"
#include "document/StageReading.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace zelvo::document {

namespace {

using actions::GestureState;
using test::World;

/// A press, a hold, a drag, a press of one node, and a button that is never released.
class ActEditsTest : public testing::Test {
protected:
    ActEditsTest() {
        world.play(
            {{2.5, [this] { world.begin("IN1", "Left In"); }},
             {3.0, [this] { world.begin("FX1", "Invert"); }},
             {3.5, [this] { world.end(); }},
             {4.0,
              [this] {
                  world.fingers().pan(GestureState::began, {10, 20});
              }},
             {4.2,
              [this] {
                  world.fingers().pan(GestureState::changed, {40, 20});
              }},
             {4.5,
              [this] {
                  world.fingers().pan(GestureState::ended, {40, 20});
              }},
             {5.0, [this] { world.begin("OT1", "Left Out", {world.stage().textNode2}); }},
             {6.0, [this] { world.begin("CAM", "Zoom Cam"); }}});
    }

    [[nodiscard]] Act act(const std::string& button) {
        const auto acts = actsOf(model);
        const auto found = std::ranges::find(acts, button, &Act::button);
        EXPECT_NE(found, acts.end()) << button;
        return found == acts.end() ? Act{} : *found;
    }

    [[nodiscard]] Cue cue(const std::string& button) {
        for (const Cue& cue : cuesOf(model)) {
            const auto* const press = std::get_if<Press>(&cue.act);
            if (press != nullptr && press->title == button)
                return cue;
        }
        ADD_FAILURE() << button;
        return {};
    }

    /// All that the document says of the performance.
    [[nodiscard]] std::string document() const { return written({{}, {}, cuesOf(model)}); }

    World world;
    model::Model& model = world.model();
    actions::ActionController& controller = model.actionController();
};

constexpr double kFrame = 0.017;

} // namespace

TEST_F(ActEditsTest, tell_what_the_hand_did) {
    const auto acts = actsOf(model);
    ASSERT_EQ(acts.size(), 5U);
    const std::vector<ActKind> kinds{
        ActKind::press, ActKind::hold, ActKind::drag, ActKind::press, ActKind::hold};
    for (std::size_t i = 0; i < kinds.size(); ++i)
        EXPECT_EQ(acts[i].kind, kinds[i]) << acts[i].title;
    EXPECT_NEAR(acts[1].begins, 1.0, kFrame);
    EXPECT_NEAR(acts[1].ends, 1.5, kFrame);
    EXPECT_NEAR(acts[2].ends - acts[2].begins, 0.5, kFrame);
    EXPECT_EQ(acts[3].title, "Left Out (TX2)");
    EXPECT_EQ(acts[3].nodes, std::vector<std::string>{"TX2"});
    EXPECT_EQ(acts[2].title, "Camera Move");
    EXPECT_FALSE(acts[4].isReleased);
    EXPECT_TRUE(acts[0].isReleased && acts[1].isReleased && acts[2].isReleased);
}

TEST_F(ActEditsTest, move_whole_acts_but_not_before_the_count_in) {
    const int drag = actsOf(model)[2].identifier;
    moveActs(model, {drag, act("Left In").identifier}, 1.25);
    EXPECT_NEAR(act("Left In").begins, 1.75, kFrame);
    EXPECT_NEAR(act("Left Out").begins, 3.0, kFrame);
    const auto moved = actsOf(model);
    const auto found = std::ranges::find(moved, drag, &Act::identifier);
    EXPECT_NEAR(found->begins, 3.25, kFrame);
    EXPECT_NEAR(found->ends, 3.75, kFrame);
    moveActs(model, {drag, act("Invert").identifier}, -100);
    EXPECT_NEAR(act("Invert").begins, -2, 1e-6);
    EXPECT_NEAR(act("Invert").ends, -1.5, kFrame);
    EXPECT_NEAR(actsOf(model)[1].begins, 0.25, 2 * kFrame) << "as far apart as before";
    // Replayed at their new times, in the order of time.
    moveActs(model, {act("Left Out").identifier}, -2.5);
    std::vector<std::string> order;
    for (const Act& each : actsOf(model))
        order.push_back(each.button);
    EXPECT_EQ(order, (std::vector<std::string>{"Invert", "", "Left Out", "Left In", "Zoom Cam"}));
}

TEST_F(ActEditsTest, lengthen_a_hold_and_end_one_that_was_never_released) {
    endActAt(model, act("Invert").identifier, 2.6);
    EXPECT_NEAR(*std::get<Press>(cue("Invert").act).held, 1.6, kFrame);
    endActAt(model, act("Invert").identifier, -5);
    EXPECT_NEAR(*std::get<Press>(cue("Invert").act).held, kFrame, 0.01);
    const int zoom = act("Zoom Cam").identifier;
    endActAt(model, zoom, 5.5);
    EXPECT_NEAR(*std::get<Press>(cue("Zoom Cam").act).held, 1.5, kFrame);
    EXPECT_EQ(act("Zoom Cam").identifier, zoom);
    const auto before = world.records();
    endActAt(model, act("Left In").identifier, 5);
    EXPECT_EQ(world.records(), before) << "a press has no end";
}

TEST_F(ActEditsTest, duplicate_with_new_speed_and_the_same_chance) {
    const auto copies = duplicateActs(
        model,
        {act("Left Out").identifier, act("Invert").identifier, actsOf(model)[2].identifier},
        0.5);
    EXPECT_EQ(copies.size(), 3U);
    EXPECT_EQ(actsOf(model).size(), 8U);
    setSpeedOfActs(model, copies, model::AnimationRatio::superFast);
    int faster = 0;
    for (const Cue& each : cuesOf(model)) {
        const auto* const press = std::get_if<Press>(&each.act);
        faster += press != nullptr && press->speed == "Faster" ? 1 : 0;
    }
    EXPECT_EQ(faster, 2);
    const Cue first = cue("Left Out");
    removeActs(model, {act("Left Out").identifier});
    const Cue second = cue("Left Out");
    EXPECT_NEAR(second.at - first.at, 0.5, kFrame);
    EXPECT_EQ(std::get<Press>(second.act).seed, std::get<Press>(first.act).seed);
    EXPECT_EQ(std::get<Press>(second.act).nodes, std::get<Press>(first.act).nodes);
}

/// Edits mixed with presses, undo and redo in any order: undoing all of it comes back to the start, and
/// redoing all of it to the end.
TEST_F(ActEditsTest, are_undone_and_redone_in_their_order) {
    std::mt19937 draw(3);
    while (controller.undoManager.canUndo())
        controller.undo();
    while (controller.undoManager.canRedo())
        controller.redo();
    std::vector<std::string> states{document()};
    for (int step = 0; step < 40; ++step) {
        const auto acts = actsOf(model);
        const int some = acts.empty() ? 0 : acts[draw() % acts.size()].identifier;
        const auto before = document();
        switch (acts.size() < 3 ? 4 : draw() % 5) {
        case 0:
            moveActs(model, {some}, 0.25);
            break;
        case 1:
            setSpeedOfActs(model, {some}, model::kSpeeds[draw() % 7].ratio);
            break;
        case 2:
            removeActs(model, {some});
            break;
        case 3:
            duplicateActs(model, {some}, 0.1);
            break;
        default:
            controller.recordAt(1.0 + step * 0.1, [&] { world.begin("IN1", "Left In"); });
        }
        if (document() != before)
            states.push_back(document());
    }
    for (auto state = states.rbegin(); state != states.rend(); ++state) {
        EXPECT_EQ(document(), *state);
        if (state + 1 != states.rend())
            controller.undo();
    }
    for (const auto& state : states) {
        EXPECT_EQ(document(), state);
        if (&state != &states.back())
            controller.redo();
    }
    EXPECT_FALSE(controller.undoManager.canRedo());
    controller.undo();
    moveActs(model, {actsOf(model).front().identifier}, 0.5);
    EXPECT_FALSE(controller.undoManager.canRedo()) << "another way was taken";
}

TEST_F(ActEditsTest, put_back_what_was_deleted_for_good) {
    const auto whole = world.records();
    controller.deleteForGood([&] { controller.removeActions(act("Left In").identifier); });
    controller.deleteForGood([&] { controller.deleteAll(); });
    EXPECT_FALSE(controller.undoManager.canUndo());
    ASSERT_TRUE(controller.canPutBack());
    controller.putBack();
    EXPECT_EQ(actsOf(model).size(), 4U);
    controller.putBack();
    EXPECT_EQ(world.records(), whole);
    EXPECT_FALSE(controller.canPutBack());
    const int next = controller.newIdentifier();
    for (const Act& each : actsOf(model))
        EXPECT_LT(each.identifier, next);
    controller.deleteForGood([&] { controller.deleteAll(); });
    controller.recordAt(1, [&] { world.begin("IN1", "Right In"); });
    EXPECT_FALSE(controller.canPutBack()) << "it would lose the new one";
    controller.deleteForGood([&] { controller.deleteAll(); });
    EXPECT_TRUE(controller.canPutBack());
    controller.deleteAll(); // another document
    EXPECT_FALSE(controller.canPutBack());
}

} // namespace zelvo::document
