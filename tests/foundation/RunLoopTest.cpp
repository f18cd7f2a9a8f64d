// SPDX-License-Identifier: MIT
#include "platform/foundation/RunLoop.h"

#include "platform/foundation/CallQueue.h"

#include <gtest/gtest.h>

#include <QCoreApplication>

#include <algorithm>
#include <string>
#include <thread>
#include <vector>

namespace zelvo::foundation {
namespace {

TEST(VirtualRunLoop, CallsComeByDueTimeThenByOrderOfMaking) {
    VirtualRunLoop loop;
    std::string order;
    loop.asyncAfter(2.0, [&] { order += "c"; });
    loop.asyncAfter(1.0, [&] { order += "a"; });
    loop.asyncAfter(1.0, [&] {
        order += "b";
        loop.post([&] { order += "p"; }); // a post runs before the clock advances
    });
    EXPECT_TRUE(loop.runUntil([&] { return order.size() == 4; }));
    EXPECT_EQ(order, "abpc");
    EXPECT_DOUBLE_EQ(loop.now(), 2.0);
}

TEST(CallQueue, ALateCallComesBackToItsMeasureAndLeavesOutWhatItMissed) {
    CallQueue queue;
    queue.add(1, {[] {}, 1, nullptr});
    queue.runNext(1.25);
    EXPECT_EQ(queue.nextDue(), 2);
    queue.runNext(4.5);
    EXPECT_EQ(queue.nextDue(), 5);
}

TEST(VirtualRunLoop, ARepeatingTimerKeepsItsIntervalAndMayEndItself) {
    VirtualRunLoop loop;
    std::vector<double> times;
    Timer timer;
    timer = loop.scheduleRepeating(0.25, [&] {
        times.push_back(loop.now());
        if (times.size() == 3)
            timer.invalidate();
    });
    loop.runTo(10);
    EXPECT_EQ(times, (std::vector<double>{0.25, 0.5, 0.75}));
    EXPECT_DOUBLE_EQ(loop.now(), 10);
}

TEST(VirtualRunLoop, AnEndedTimerIsNotCalledEvenWhenItWasDueTogetherWithWhatEndedIt) {
    VirtualRunLoop loop;
    bool wasCalled = false;
    Timer victim;
    loop.asyncAfter(1.0, [&] { victim.invalidate(); });
    victim = loop.scheduleOnce(1.0, [&] { wasCalled = true; });
    Timer replaced = loop.scheduleOnce(2.0, [&] { wasCalled = true; });
    replaced = loop.scheduleOnce(3.0, [] {});
    loop.runTo(5);
    EXPECT_FALSE(wasCalled);
}

TEST(VirtualRunLoop, AnEmptyLoopGivesUpUnlessPostsAreExpected) {
    VirtualRunLoop loop;
    EXPECT_FALSE(loop.runUntil([] { return false; }));

    bool arrived = false;
    const Timer expectation = loop.expectPosts();
    std::thread other([&] { loop.post([&] { arrived = true; }); });
    EXPECT_TRUE(loop.runUntil([&] { return arrived; }));
    other.join();
}

/// The wall loop needs Qt's application; one serves all its tests.
class WallRunLoopTest : public testing::Test {
protected:
    int argc = 1;
    std::string name = "test";
    std::vector<char*> argv{name.data()};
    QCoreApplication application{argc, argv.data()};
    WallRunLoop loop;
};

TEST_F(WallRunLoopTest, SerialWorkRunsInOrderOnItsOwnThreadAndHandsItsResultsBack) {
    const auto queue = loop.makeSerialQueue("work");
    std::vector<int> results;
    std::thread::id worker;
    for (int i = 0; i < 100; ++i) {
        queue->async([&, i] {
            worker = std::this_thread::get_id();
            loop.post([&results, i] { results.push_back(i); });
        });
    }
    loop.runUntil([&] { return results.size() == 100; });
    EXPECT_TRUE(std::is_sorted(results.begin(), results.end()));
    EXPECT_NE(worker, std::this_thread::get_id());
}

TEST_F(WallRunLoopTest, AnUnpacedClockJumpsThroughAnHourAtOnceAndRealTimeGoesOnFromThere) {
    loop.setPacing(Pacing::unpaced);
    int ticks = 0;
    Timer timer = loop.scheduleRepeating(60, [&] { ++ticks; });
    double delayed = 0;
    loop.asyncAfter(90, [&] { delayed = loop.now(); });
    const double start = loop.now();
    loop.runUntil([&] { return ticks == 60; });
    EXPECT_NEAR(loop.now() - start, 3600, 1);
    EXPECT_NEAR(delayed - start, 90, 1);

    loop.setPacing(Pacing::realTime);
    EXPECT_GE(loop.now() - start, 3599);
    EXPECT_LT(loop.now() - start, 3700);
}

} // namespace
} // namespace zelvo::foundation
