// SPDX-License-Identifier: MIT
#include "platform/foundation/RunLoop.h"
#include "shared/Signal.h"
#include "ui/controls/Alerts.h"
#include "ui/controls/FuncButton.h"
#include "ui/controls/HighlightButton.h"
#include "ui/controls/MySlider.h"
#include "ui/controls/TabStackView.h"
#include "ui/controls/ValueLabel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace zelvo::ui {

namespace {

using Glow = FuncButton::Glow;
using testing::DoubleNear;
using testing::ElementsAre;
using testing::Optional;

class FuncButtonTest : public testing::Test {
protected:
    [[nodiscard]] FuncButton::Action fire(bool timed = false) {
        return {.beganFunc = [this] { ++began; }, .timed = timed};
    }

    [[nodiscard]] FuncButton::Action hold() {
        return {
            .beganFunc = [this] { ++began; },
            .endFunc = [this](std::optional<double> held) { ended.push_back(held); }};
    }

    foundation::VirtualRunLoop loop;
    int began = 0;
    std::vector<std::optional<double>> ended;
};

TEST_F(FuncButtonTest, AFireButtonActsAtOnceAndFlashesHoweverLongItIsHeld) {
    FuncButton button(loop, {.title = "Left In"}, fire());
    button.press();
    EXPECT_EQ(began, 1);
    EXPECT_EQ(button.glow(), Glow::flash);
    loop.runFor(FuncButton::kFlashDuration);
    EXPECT_EQ(button.glow(), Glow::none);
    loop.runFor(5);
    button.release();
    EXPECT_EQ(began, 1);
}

TEST_F(FuncButtonTest, AShortTapStillFlashesInFullAndAQuickSecondOneAnew) {
    FuncButton button(loop, {.title = "Left In"}, fire());
    button.press();
    button.release();
    loop.runFor(0.05);
    std::vector<Glow> seen;
    QObject::connect(&button, &FuncButton::glowChanged, [&] { seen.push_back(button.glow()); });
    button.press();
    button.release();
    EXPECT_THAT(seen, ElementsAre(Glow::none, Glow::flash)) << "the view starts its flash anew";
    loop.runFor(0.05);
    EXPECT_EQ(button.glow(), Glow::flash) << "the end of the first flash does not end the second";
    loop.runFor(0.05);
    EXPECT_EQ(button.glow(), Glow::none);
    EXPECT_EQ(began, 2);
}

TEST_F(FuncButtonTest, ATimedButtonRepeatsWhileItIsHeld) {
    FuncButton button(loop, {.title = "Random"}, fire(true));
    button.press();
    loop.runFor(0.35);
    EXPECT_EQ(began, 1 + 3);
    EXPECT_EQ(button.glow(), Glow::pulse);
    button.release();
    loop.runFor(1);
    EXPECT_EQ(began, 1 + 3);
    EXPECT_EQ(button.glow(), Glow::none);
}

TEST_F(FuncButtonTest, AHoldButtonEndsOnceWithTheHeldTime) {
    FuncButton button(loop, {.title = "Blur"}, hold());
    button.release();
    button.press();
    loop.runFor(0.75);
    button.press(); // a key while a finger is on it
    EXPECT_EQ(button.glow(), Glow::lit);
    button.release();
    button.release();
    EXPECT_EQ(began, 1);
    EXPECT_THAT(ended, ElementsAre(Optional(DoubleNear(0.75, 1e-9))));
    EXPECT_EQ(button.glow(), Glow::none);
}

TEST_F(FuncButtonTest, APressThatIsTakenAwayEndsLikeALiftOff) {
    {
        FuncButton button(loop, {.title = "Blur"}, hold());
        button.press();
        button.cancel();
        EXPECT_EQ(ended.size(), 1u);
        button.press();
    }
    EXPECT_EQ(ended.size(), 2u) << "a deleted button ends its effect";
}

TEST(SegmentedSelection, IsOnePerStack) {
    MySegmentedStackButton a({.title = "IN1"}, {});
    MySegmentedStackButton b({.title = "IN2"}, {});
    MySegmentedStackButton namesake({.title = "IN1"}, {});
    MySegmentedStackButton plain({.title = "IN3"}, {});
    plain.highlightingEnabled = false;
    TabStackView here;
    here.setArrangedSubviews({&a, &b, &plain});
    TabStackView elsewhere;
    elsewhere.addArrangedSubview(namesake);

    namesake.click();
    b.click();
    a.click();
    plain.click();
    EXPECT_TRUE(a.isMySelected());
    EXPECT_FALSE(b.isMySelected());
    EXPECT_FALSE(plain.isMySelected());
    EXPECT_TRUE(namesake.isMySelected()) << "a click in another stack changes nothing here";
}

TEST(SegmentedSelection, ByIndexCountsOnlyTabsAndEndsAtTheLast) {
    int touched = 0;
    MyButton label({.title = "Title"}, {});
    MySegmentedStackButton a({.title = "IN1"}, [&] { ++touched; });
    MySegmentedStackButton b({.title = "IN2"}, [&] { ++touched; });
    TabStackView stack;
    stack.setArrangedSubviews({&label, &a, &b});
    stack.select(0);
    EXPECT_TRUE(a.isMySelected());
    stack.select(2);
    EXPECT_TRUE(a.isMySelected());
    stack.setArrangedSubviews({});
    b.click();
    EXPECT_TRUE(a.isMySelected()) << "a removed button no longer belongs to the group";
    EXPECT_EQ(touched, 1) << "selecting does not call the action";
}

TEST(TabStackView, ForgetsAButtonThatHasGone) {
    TabStackView stack;
    auto gone = std::make_unique<MySegmentedStackButton>(ButtonFace{.title = "A"}, nullptr);
    MySegmentedStackButton stays({.title = "B"}, {});
    stack.setArrangedSubviews({gone.get(), &stays});
    gone.reset();
    EXPECT_THAT(stack.arranged(), ElementsAre(&stays));
    stack.select(0);
    EXPECT_TRUE(stays.isMySelected());
}

TEST(MySlider, GoesBackToItsDefaultOnlyIfItHasOne) {
    std::vector<double> told;
    MySlider slider("Depth", {.minimum = 0, .maximum = 10});
    slider.valueChanged = [&](double value) { told.push_back(value); };
    slider.setValue(4);
    slider.sliderTapped();
    EXPECT_EQ(slider.value(), 4);
    slider.defaultValue = 6;
    slider.sliderTapped();
    slider.moveTo(12);
    EXPECT_THAT(told, ElementsAre(6, 10));
}

TEST(MySlider, TakesKeysAndNumbersAsTheyAreTyped) {
    MySlider slider("Depth", {.minimum = -100, .maximum = 100, .step = 5});

    struct Key {
        int key, modifiers;
        double value;
    };

    slider.setValue(0);
    for (const auto& [key, modifiers, value] :
         {Key{Qt::Key_Up, 0, 5},
          Key{Qt::Key_Right, Qt::ControlModifier, 5 + 5 * MySlider::kSmallSteps},
          Key{Qt::Key_Home, 0, -100},
          Key{Qt::Key_PageUp, 0, -100 + 5 * MySlider::kLargeSteps}}) {
        EXPECT_TRUE(slider.pressKey(key, modifiers));
        EXPECT_DOUBLE_EQ(slider.value(), value);
    }
    EXPECT_FALSE(slider.pressKey(Qt::Key_A, 0));
    for (const auto& [typed, value] :
         {std::pair(" 7,5 ", 7.5),
          {"\u22123", -3.0},
          {"1e9", 100.0},
          {"-0.4", -0.4},
          {"nan", -0.4},
          {"inf", -0.4},
          {"x", -0.4}}) {
        slider.write(typed);
        EXPECT_EQ(slider.value(), value) << typed;
    }
    EXPECT_EQ(slider.number(), "0") << "never -0";
}

TEST(Alerts, AreAnsweredByKeysWithWhatDoesNoHarm) {
    using enum AlertRole;

    struct Row {
        std::vector<AlertRole> roles;
        int byReturn;
        int byEscape; ///< -1: it stays
    };

    for (const Row& row :
         {Row{{destructive, cancel}, 1, 1},
          Row{{standard, cancel}, 0, 1},
          Row{{standard}, 0, 0},
          Row{{standard, standard}, 0, -1}}) {
        Alerts alerts;
        int chosen = -1;
        Alert alert{.title = "?", .actions = {}};
        for (int i = 0; i < static_cast<int>(row.roles.size()); ++i)
            alert.actions.push_back(
                {.title = "a",
                 .role = row.roles.at(static_cast<std::size_t>(i)),
                 .handler = [&chosen, i] { chosen = i; }});
        alerts.show(std::move(alert));
        EXPECT_EQ(alerts.defaultAction(), row.byReturn);
        alerts.escape();
        EXPECT_EQ(chosen, row.byEscape);
        EXPECT_EQ(alerts.isShowing(), row.byEscape < 0);
    }
}

TEST(ValueLabel, ShowsAMessageAfterAGapAndASecondOneAnew) {
    foundation::VirtualRunLoop loop;
    const ValueLabel label(loop);
    EXPECT_TRUE(label.isHidden());
    signals().messageSignal.fire("Speed: Slow");
    EXPECT_TRUE(label.isHidden());
    loop.runFor(0.11);
    EXPECT_FALSE(label.isHidden());
    loop.runFor(2.0);
    signals().messageSignal.fire("Speed: Fast");
    EXPECT_TRUE(label.isHidden());
    loop.runFor(2.0);
    EXPECT_FALSE(label.isHidden()) << "the first message's timer does not hide the second";
    EXPECT_EQ(label.text(), "Speed: Fast");
    loop.runFor(0.31);
    EXPECT_TRUE(label.isHidden());
}

} // namespace

} // namespace zelvo::ui
