// SPDX-License-Identifier: MIT
#include "actions/ControllerFixture.h"
#include "shared/Signal.h"

#include <gmock/gmock.h>

#include <QCoreApplication>

#include <algorithm>
#include <cmath>

namespace zelvo::actions {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class RecordingTest : public test::ControllerTest {};

TEST_F(RecordingTest, KeepsWhatIsDoneWhileTheTimelineRuns) {
    int runs = 0;
    add("preview", controller.newIdentifier(), [&] { ++runs; });
    EXPECT_EQ(runs, 1);
    EXPECT_THAT(recordedTitles(), IsEmpty()) << "a preview leaves no trace";
    EXPECT_FALSE(controller.undoManager.canUndo());

    plays = true;
    clock = 3.5;
    add("kept", controller.newIdentifier(), [&] { ++runs; });
    EXPECT_EQ(runs, 2);
    ASSERT_THAT(recordedTitles(), ElementsAre("kept"));
    EXPECT_EQ(controller.recordedActions()[0]->time, 3.5);
    EXPECT_EQ(controller.recordedActions()[0]->identifier, 2);
    EXPECT_EQ(controller.undoManager.undoTitle(), "kept");
}

TEST_F(RecordingTest, ReplaysEachRecordOnceInEachRun) {
    plays = true;
    std::vector<int> order;
    for (const double at : {4.0, 3.0, 0.0, 99.0}) {
        clock = at;
        add("a", controller.newIdentifier(), [&order, at] {
            order.push_back(static_cast<int>(at));
        });
    }
    order.clear();
    for (int run = 0; run < 2; ++run) {
        controller.markAllNotRun();
        for (const double t : {0.0, 0.02, 2.99, 3.0, 3.5, 5.0, 6.0})
            tick(t);
    }
    // The record of time 0 runs with the second tick, that of 99 never.
    EXPECT_THAT(order, ElementsAre(0, 3, 4, 0, 3, 4));
}

TEST_F(RecordingTest, RecordsPressesAtTheBeatsButPerformsThemAtOnce) {
    plays = true;
    controller.snapTime = [](double time) { return std::round(time); };
    int runs = 0;
    int releases = 0;
    clock = 2.6;
    const int hold = controller.newIdentifier();
    add("hold", hold, [&] { ++runs; });
    clock = 2.9;
    controller.addAction([&] { ++releases; }, hold, "", RegisterUndo::no);
    controller.gestures.doubleTap();
    world.runLoop.drain();
    EXPECT_EQ(runs, 1);
    std::vector<double> times;
    for (const XACPtr& xac : controller.recordedActions())
        times.push_back(xac->time);
    EXPECT_THAT(times, ElementsAre(3.0, testing::DoubleNear(3.3, 1e-9), 2.9))
        << "a hold keeps its length, a gesture its time";

    tick(3.1);
    EXPECT_EQ(runs, 1) << "not again in the run in which it was pressed";
    controller.undo();
    controller.undo();
    controller.redo();
    controller.markAllNotRun();
    tick(2.7);
    EXPECT_EQ(runs, 1);
    tick(3.0);
    EXPECT_EQ(runs, 2);
}

TEST_F(RecordingTest, RunsWhatIsDueTogetherInTheOrderOfMakingBehindTheTick) {
    plays = true;
    clock = 2.5;
    std::string order;
    add("later made", 1, [&] { order += 'a'; });
    clock = 2.4;
    add("earlier time", 2, [&] { order += 'b'; });
    order.clear();
    controller.markAllNotRun();
    controller.run(3.0);
    controller.run(3.1);
    EXPECT_EQ(order, "") << "callbacks wait for the tick to end";
    world.runLoop.drain();
    EXPECT_EQ(order, "ab");
}

TEST_F(RecordingTest, UndoesAndRedoesAsAMirror) {
    std::vector<std::string> messages;
    const foundation::Lifetime listening;
    ui::signals().messageSignal.subscribe(
        listening, [&](const std::string& text) { messages.push_back(text); });
    plays = true;
    add("one", controller.newIdentifier());
    add("", controller.newIdentifier());
    controller.undo();
    controller.undo();
    controller.undo(); // nothing to undo: no message
    EXPECT_THAT(recordedTitles(), IsEmpty());
    controller.redo();
    EXPECT_THAT(recordedTitles(), ElementsAre("one"));
    EXPECT_THAT(messages, ElementsAre("Undo Action", "Undo one", "Redo one"));
    controller.undo();
    controller.redo();
    EXPECT_THAT(recordedTitles(), ElementsAre("one"));
    add("new", controller.newIdentifier());
    EXPECT_FALSE(controller.undoManager.canRedo()) << "a new action ends what could be redone";
    controller.redo();
    EXPECT_THAT(recordedTitles(), ElementsAre("one", "new"));

    controller.addAction([] {}, controller.newIdentifier(), "newest", RegisterUndo::yes);
    controller.undo(); // while the press is still queued
    controller.undo();
    controller.redo();
    world.runLoop.drain();
    EXPECT_THAT(messages, testing::Contains("Undo newest"));
    EXPECT_THAT(recordedTitles(), ElementsAre("one", "new"));
}

TEST_F(RecordingTest, ForgetsEverything) {
    int signals = 0;
    const foundation::Lifetime listening;
    ui::signals().undoStateSignal.subscribe(listening, [&] { ++signals; });
    plays = true;
    add("gone", controller.newIdentifier());
    add("undone", controller.newIdentifier());
    controller.undo();
    controller.addAction([] {}, controller.newIdentifier(), "under way", RegisterUndo::yes);
    signals = 0;
    controller.deleteAll();
    world.runLoop.drain();
    EXPECT_THAT(recordedTitles(), IsEmpty()) << "not even what was under way";
    EXPECT_FALSE(controller.undoManager.canUndo() || controller.undoManager.canRedo());
    EXPECT_EQ(controller.newIdentifier(), 1);
    EXPECT_EQ(stops, 1);
    EXPECT_EQ(signals, 2);

    world.runLoop.runFor(0.02); // the opening fly-in
    beginActions();
    EXPECT_EQ(nodes.textNode1->position.value(), glm::vec3(0, 0, -800));
    animateTo(0.5);
    EXPECT_EQ(nodes.mediaNode->position.value(), glm::vec3(0));
}

TEST_F(RecordingTest, NamesTheNodesOfAnAction) {
    EXPECT_EQ(
        ActionController::describe("Left In", {nodes.textNode1, nodes.textNode2}),
        "Left In (TX1, TX2)");
    EXPECT_EQ(ActionController::describe("Left In", {}), "Left In ()");
    EXPECT_EQ(ActionController::describe("[a] \"b\"", {nodes.textNode1}), "(a) b (TX1)");
}

/// On the wall clock, where the serial queue has a thread of its own.
class WallRecordingTest : public test::ControllerTest {
protected:
    WallRecordingTest() { queue = wall.makeSerialQueue("actions"); }

    ~WallRecordingTest() override { queue.reset(); }

    [[nodiscard]] foundation::RunLoop& runLoop() override { return wall; }

    int argc = 1;
    std::string name = "test";
    std::vector<char*> argv{name.data()};
    QCoreApplication application{argc, argv.data()}; // the wall-clock run loop needs its event loop
    foundation::WallRunLoop wall;
};

TEST_F(WallRecordingTest, KeepsTheOrderOfThePresses) {
    plays = true;
    std::vector<int> order;
    std::vector<int> wanted;
    for (int i = 1; i <= 200; ++i) {
        wanted.push_back(i);
        controller.addAction(
            [&order, i] { order.push_back(i); },
            controller.newIdentifier(),
            "x",
            RegisterUndo::yes);
    }
    EXPECT_TRUE(order.empty()) << "a press waits for nothing";
    ASSERT_TRUE(wall.runUntil([&] { return order.size() == 200; }));
    EXPECT_EQ(order, wanted);
    const auto& records = controller.recordedActions();
    EXPECT_TRUE(
        std::ranges::is_sorted(records, {}, [](const XACPtr& xac) { return xac->identifier; }));
    EXPECT_EQ(records.size(), 200U);
}

} // namespace
} // namespace zelvo::actions
