// SPDX-License-Identifier: MIT
#include "platform/foundation/RunLoop.h"
#include "ui/screens/Visualizer.h"

#include <gtest/gtest.h>

#include <QMouseEvent>
#include <QObject>
#include <QPointingDevice>
#include <QTouchEvent>

#include <algorithm>
#include <string>

namespace zelvo::test {

namespace {

using ui::TouchPhase;

class TouchTest : public testing::Test {
protected:
    [[nodiscard]] auto shown() const {
        return std::ranges::count_if(
            visualizer.touchViews, [](const auto& view) { return view->isShown(); });
    }

    void touch(int id, TouchPhase phase, double x = 0) {
        visualizer.handleEvent({{.id = id, .phase = phase, .location = {x, 0}}});
    }

    foundation::VirtualRunLoop loop;
    ui::Visualizer visualizer{loop};
};

TEST_F(TouchTest, ShowsNothingUnlessItHasBeenStarted) {
    touch(1, TouchPhase::began);
    EXPECT_TRUE(visualizer.touchViews.empty());
    visualizer.toggle();
    touch(1, TouchPhase::began);
    EXPECT_EQ(shown(), 1);
    visualizer.toggle();
    EXPECT_EQ(shown(), 0);
}

TEST_F(TouchTest, FingersUseTheSameViewsAgain) {
    visualizer.start({});
    for (int round = 0; round < 3; ++round) {
        const int first = 10 * round;
        touch(first, TouchPhase::began, 5);
        touch(first + 1, TouchPhase::began, 7);
        touch(first, TouchPhase::moved, 50);
        EXPECT_EQ(shown(), 2);
        EXPECT_EQ(visualizer.touchViews[0]->center().x(), 50);
        EXPECT_EQ(visualizer.touchViews[1]->center().x(), 7);
        touch(first, TouchPhase::ended);
        EXPECT_EQ(shown(), 1);
        touch(first + 1, TouchPhase::cancelled);
        loop.runFor(0.2);
        EXPECT_EQ(visualizer.touchViews.size(), 2U);
    }
    touch(1, TouchPhase::began);
    touch(1, TouchPhase::ended);
    touch(1, TouchPhase::began); // while the last finger's view is still fading
    EXPECT_EQ(shown(), 1);
    loop.runFor(0.2);
    EXPECT_EQ(shown(), 1);
}

TEST_F(TouchTest, CountsTheSecondsAndTheWidthOfATouchIfAsked) {
    visualizer.start({.defaultSize = {40, 40}, .showsTimer = true, .showsTouchRadius = true});
    visualizer.handleEvent({{.id = 1, .phase = TouchPhase::began, .radius = 30}});
    const ui::TouchView& view = *visualizer.touchViews.front();
    EXPECT_EQ(view.timerLabel(), "0.00");
    EXPECT_DOUBLE_EQ(view.ratio(), 1.5);
    loop.runFor(1.5);
    EXPECT_NEAR(view.timerLabel().toDouble(), 1.5, 0.02);
    touch(1, TouchPhase::ended);
    const QString last = view.timerLabel();
    loop.runFor(1);
    EXPECT_EQ(view.timerLabel(), last);
    touch(2, TouchPhase::began); // a finger whose width is not known
    EXPECT_EQ(view.timerLabel(), "0.00");
    EXPECT_EQ(view.ratio(), 1);
}

TEST_F(TouchTest, LogsWhatChangesOnly) {
    visualizer.start({.showsLog = true});
    const auto log = [this](TouchPhase phase, double x) {
        testing::internal::CaptureStderr();
        touch(1, phase, x);
        return testing::internal::GetCapturedStderr();
    };
    EXPECT_EQ(log(TouchPhase::began, 1.5), "Touch: [0]<began> c:(1.50, 0.00) r:0.00\t\n");
    EXPECT_NE(log(TouchPhase::stationary, 1.5), "");
    EXPECT_EQ(log(TouchPhase::stationary, 1.5), "");
    EXPECT_NE(log(TouchPhase::stationary, 2.5), "");
}

TEST_F(TouchTest, TakesTouchesAndTheHeldMouseFromAWindowsEventsAndPassesThemOn) {
    QObject window;
    visualizer.watch(&window);
    visualizer.start({});
    const auto mouse = [&](QEvent::Type type, double x, Qt::MouseButtons held) {
        QMouseEvent event(
            type,
            {x, 3},
            {x, 3},
            {x, 3},
            type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
            held,
            Qt::NoModifier);
        EXPECT_FALSE(visualizer.eventFilter(&window, &event));
    };
    mouse(QEvent::MouseMove, 1, Qt::NoButton);
    EXPECT_EQ(shown(), 0) << "a pointer that passes by is no touch";
    mouse(QEvent::MouseButtonPress, 2, Qt::LeftButton);
    mouse(QEvent::MouseMove, 9, Qt::LeftButton);
    ASSERT_EQ(shown(), 1);
    EXPECT_EQ(visualizer.touchViews.front()->center(), QPointF(9, 3));
    mouse(QEvent::MouseButtonRelease, 9, Qt::NoButton);
    EXPECT_EQ(shown(), 0);

    const QPointingDevice screen;
    QTouchEvent fingers(
        QEvent::TouchBegin,
        &screen,
        Qt::NoModifier,
        {{1, QEventPoint::State::Pressed, {4, 4}, {4, 4}},
         {2, QEventPoint::State::Pressed, {8, 8}, {8, 8}}});
    EXPECT_FALSE(visualizer.eventFilter(&window, &fingers));
    EXPECT_EQ(shown(), 2);
    QTouchEvent cancel(QEvent::TouchCancel, &screen); // names no finger
    EXPECT_FALSE(visualizer.eventFilter(&window, &cancel));
    EXPECT_EQ(shown(), 0);
}

} // namespace

} // namespace zelvo::test
