// SPDX-License-Identifier: MIT
#include "ui/main/FrameGate.h"

#include "shared/FrameClock.h"
#include "shared/Signal.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEvent>
#include <QQuickWindow>

namespace zelvo::ui {

namespace {

constexpr double kStep = shared::FrameClock::kStep;

/// How many pictures a second are drawn in a run whose ticks are so many steps apart.
double picturesASecond(double steps) {
    LostTime time;
    double now = 0;
    double last = 0;
    int pictures = 0;
    time.runBegan(now);
    for (int i = 0; i < 600; ++i) {
        now += steps * kStep;
        time.ticked(now);
        if (now < time.drawsFrom(last))
            continue;
        last = now;
        ++pictures;
    }
    return pictures / now;
}

TEST(LostTime, leaves_pictures_out_while_a_run_loses_time_but_not_all) {
    EXPECT_NEAR(picturesASecond(1), 60, 0.1);
    EXPECT_NEAR(picturesASecond(1 + LostTime::kAllowedShare), 60, 4);
    EXPECT_NEAR(picturesASecond(2), 1 / LostTime::kLongestRest, 1);

    LostTime time;
    time.runBegan(0);
    time.ticked(5); // the window was dragged, which stops the clock
    EXPECT_GT(time.drawsFrom(5), 5.1);
    const int steps = static_cast<int>(LostTime::kMaxKept / LostTime::kAllowedShare / kStep);
    for (int i = 0; i < steps; ++i)
        time.ticked(5 + i * kStep);
    EXPECT_EQ(time.drawsFrom(7), 7) << "forgotten after two seconds";
    time.ticked(12);
    time.runEnded();
    EXPECT_EQ(time.drawsFrom(12), 12) << "no run, no lost time";
}

TEST(FrameGate, keeps_the_main_thread_from_waiting_for_the_drawing_one) {
    foundation::VirtualRunLoop loop;
    QQuickWindow window;
    window.create();

    struct Passed : QObject {
        int frames = 0;

        bool eventFilter(QObject*, QEvent* event) override {
            frames += event->type() == QEvent::UpdateRequest ? 1 : 0;
            return event->type() == QEvent::UpdateRequest;
        }
    } passed;

    window.installEventFilter(&passed);
    FrameGate gate(window, loop);
    const auto ask = [&] {
        QEvent request(QEvent::UpdateRequest);
        QCoreApplication::sendEvent(&window, &request);
        return passed.frames;
    };
    EXPECT_EQ(ask(), 1);
    Q_EMIT window.beforeFrameBegin();
    EXPECT_EQ(ask(), 1) << "the last picture is still being drawn";
    Q_EMIT window.afterFrameEnd();
    const QDeadlineTimer patience(10'000);
    while (passed.frames == 1 && !patience.hasExpired())
        QCoreApplication::processEvents();
    EXPECT_EQ(passed.frames, 2) << "what was asked for meanwhile comes now";

    signals().isPlayingSignal.fire(true);
    loop.runFor(1);
    signals().timeSignal.fire({});
    EXPECT_EQ(ask(), 3) << "some pictures are still drawn";
    EXPECT_EQ(ask(), 3) << "the clock lost a second";
    signals().isPlayingSignal.fire(false);
    EXPECT_EQ(ask(), 4);
}

} // namespace

} // namespace zelvo::ui
