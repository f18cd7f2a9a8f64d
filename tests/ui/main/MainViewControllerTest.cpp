// SPDX-License-Identifier: MIT
#include "ui/main/MainViewController.h"

#include "ui/UiFixture.h"
#include "ui/menus/ActionsMenu.h"
#include "ui/screens/ExportSettingsController.h"
#include "ui/screens/HistoryController.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace zelvo::ui {

namespace {

class MainScreenTest : public test::UiTest {
protected:
    MainViewController main{services};

    void settle() { loop().runFor(0.2); }
};

TEST_F(MainScreenTest, opens_on_the_style_panel_where_nothing_can_be_recorded) {
    EXPECT_EQ(main.panelView(), "LayouterMenu");
    EXPECT_FALSE(main.controlMenu.buttonsEnabled());
    EXPECT_DOUBLE_EQ(main.shareAlpha(), 0.1);
    main.controlMenu.record();
    main.share();
    settle();
    EXPECT_FALSE(model.isPlaying());
    EXPECT_FALSE(alerts.isShowing());
    main.mainMenu.animButton.click();
    settle();
    EXPECT_EQ(main.panelView(), "ActionsMenu");
    main.controlMenu.record();
    settle();
    EXPECT_TRUE(model.isPlaying());
}

TEST_F(MainScreenTest, stops_a_run_when_the_panel_changes_and_when_a_movie_is_asked_for) {
    main.showAnim();
    model.start();
    loop().runFor(1);
    const QObject* const panel = main.panel();
    main.mainMenu.animButton.click();
    settle();
    EXPECT_TRUE(model.isPlaying()) << "the panel is shown already";
    EXPECT_EQ(main.panel(), panel);
    for (const auto act :
         {&MainViewController::showAnim,
          &MainViewController::share,
          &MainViewController::showLayouterMenu}) {
        model.start();
        loop().runFor(1);
        (main.*act)();
        EXPECT_FALSE(model.isPlaying());
        EXPECT_EQ(model.time(), 0);
    }
}

TEST_F(MainScreenTest, says_what_to_do_next_until_something_is_recorded) {
    std::vector<std::string> messages;
    signals().messageSignal.subscribe(
        listening, [&](const std::string& message) { messages.push_back(message); });
    const QString styling = main.guidance.text();
    EXPECT_TRUE(styling.contains("Actions"));
    main.showAnim();
    EXPECT_TRUE(main.guidance.text().contains("Space"));
    auto& menu = *qobject_cast<ActionsMenu*>(main.panel());
    menu.viewWillAppear();
    for (int press = 0; press < 2; ++press) {
        menu.pressButton(0);
        settle();
        menu.releaseButton(0);
    }
    EXPECT_EQ(
        std::ranges::count_if(
            messages,
            [](const std::string& message) { return message.starts_with("Not recorded"); }),
        1);
    model.start();
    EXPECT_TRUE(main.guidance.text().isEmpty());
    loop().runFor(1);
    menu.pressButton(0);
    settle();
    model.stop(model::Reset::toStart);
    EXPECT_TRUE(main.guidance.text().isEmpty()) << "something is recorded";
    controller().undo();
    EXPECT_FALSE(main.guidance.text().isEmpty());
    main.showLayouterMenu();
    EXPECT_EQ(main.guidance.text(), styling);
}

TEST_F(MainScreenTest, leaves_no_strip_of_speeds_above_the_style_panel) {
    main.showAnim();
    auto& menu = *qobject_cast<ActionsMenu*>(main.panel());
    menu.speedButton.click();
    settle();
    EXPECT_FALSE(main.speedViewController.isHidden());
    menu.updateSpeedButton(); // its call is still queued when the panel is replaced
    main.showLayouterMenu();
    settle();
    EXPECT_TRUE(main.speedViewController.isHidden());
}

TEST_F(MainScreenTest, turns_the_camera_by_a_drag_beside_the_title_with_either_panel) {
    const auto panTurns = [this] {
        auto& handle = *model.nodes().cameraYHandle;
        main.stage.recognizers.setViewSize({1280, 720});
        main.stage.recognizers.press(1, {0, 0});
        main.stage.recognizers.move(1, {30, 0});
        main.stage.recognizers.move(1, {60, 0});
        settle();
        const bool hasTurned = std::abs(handle.eulerAngles().y) > 0.01;
        main.stage.recognizers.release(1, {60, 0});
        loop().runFor(2);
        return hasTurned;
    };
    settle();
    EXPECT_TRUE(panTurns());
    main.showAnim();
    settle();
    EXPECT_TRUE(panTurns());
    main.showLayouterMenu();
    settle();
    EXPECT_TRUE(panTurns());
}

TEST_F(MainScreenTest, hands_no_gesture_over_to_the_next_panel) {
    main.stage.recognizers.setViewSize({1280, 720});
    main.stage.recognizers.press(1, {10, 10});
    main.stage.recognizers.move(1, {40, 10});
    main.showAnim();
    main.stage.recognizers.move(1, {300, 10});
    settle();
    EXPECT_NEAR(model.nodes().cameraYHandle->eulerAngles().y, 0, 0.01);
}

TEST_F(MainScreenTest, turns_the_camera_by_the_share_of_the_view_that_a_drag_takes) {
    main.showAnim();
    std::vector<float> angles;
    for (const float width : {640.0f, 2560.0f}) {
        main.stage.recognizers.setViewSize({width, width});
        main.stage.recognizers.press(1, {0, 0});
        main.stage.recognizers.move(1, {0.1f * width, 0});
        main.stage.recognizers.move(1, {0.12f * width, 0});
        loop().runFor(1);
        angles.push_back(model.nodes().cameraYHandle->eulerAngles().y);
        main.stage.recognizers.release(1, {0, 0});
        loop().runFor(3);
    }
    EXPECT_LT(angles[0], -0.1f);
    EXPECT_NEAR(angles[0], angles[1], 1e-4f);
}

TEST_F(MainScreenTest, ends_what_is_held_when_all_actions_are_deleted) {
    struct Held {
        const char* what;
        std::function<void()> begin, goOn;
    };

    main.showAnim();
    auto& menu = *qobject_cast<ActionsMenu*>(main.panel());
    menu.viewWillAppear();
    SceneRecognizers& touches = main.stage.recognizers;
    const Held pan{
        "pan",
        [&] {
            touches.press(1, {0, 0});
            touches.move(1, {30, 0});
        },
        [&] {
            touches.move(1, {60, 0});
            touches.release(1, {60, 0});
        }};
    const Held pinch{
        "pinch",
        [&] {
            touches.growPinch(0.1f, {0, 0});
        },
        [&] { touches.endPinch(); }};
    const Held button{
        "button",
        [&] {
            menu.tabButton("CAM").click();
            menu.pressButton(0);
        },
        [&] { menu.releaseButton(0); }};
    for (const Held& held : {pan, pinch, button}) {
        model.start();
        loop().runFor(3);
        held.begin();
        settle();
        main.controlMenu.deleteAllActions();
        settle();
        model.start();
        loop().runFor(3);
        actions::ActionController& controller = model.actionController();
        controller.addAction([] {}, controller.newIdentifier(), "new", actions::RegisterUndo::yes);
        held.goOn();
        settle();
        ASSERT_EQ(controller.recordedActions().size(), 1U) << held.what;
        EXPECT_EQ(controller.recordedActions()[0]->title, "new");
    }
    pan.begin();
    pan.goOn();
    settle();
    EXPECT_EQ(model.actionController().undoManager.undoTitle(), "Camera Move");
}

TEST_F(MainScreenTest, puts_back_all_that_was_deleted) {
    main.showAnim();
    model.start();
    loop().runFor(3);
    actions::ActionController& controller = model.actionController();
    controller.addAction([] {}, controller.newIdentifier(), "one", actions::RegisterUndo::yes);
    settle();
    main.controlMenu.deleteAllActions();
    settle();
    EXPECT_TRUE(controller.recordedActions().empty());
    EXPECT_FALSE(main.controlMenu.undoButton.isEnabled());
    EXPECT_EQ(main.guidance.text(), "All actions are deleted");
    main.controlMenu.undo(); // by its key
    settle();
    EXPECT_EQ(controller.recordedActions().size(), 1U);
    EXPECT_FALSE(main.guidance.canPutBack());
    EXPECT_EQ(main.guidance.text(), "");
}

TEST_F(MainScreenTest, looks_different_while_it_only_plays) {
    main.showAnim();
    std::vector<std::string> said;
    const foundation::Lifetime hearing;
    signals().messageSignal.subscribe(
        hearing, [&](const std::string& text) { said.push_back(text); });
    auto& menu = *qobject_cast<ActionsMenu*>(main.panel());
    menu.viewWillAppear();
    model.togglePlaying();
    loop().runFor(0.5);
    EXPECT_FALSE(main.controlMenu.recordButton.isMySelected());
    menu.pressButton(0);
    menu.releaseButton(0);
    ASSERT_EQ(said.size(), 1U);
    EXPECT_TRUE(said[0].starts_with("Not recorded: this run only plays")) << said[0];
    main.controlMenu.record(); // stops it
    settle();
    EXPECT_TRUE(model.isParked());
    main.controlMenu.record();
    loop().runFor(0.5);
    EXPECT_TRUE(main.controlMenu.recordButton.isMySelected());
    menu.pressButton(0);
    menu.releaseButton(0);
    EXPECT_EQ(said.size(), 1U);
}

TEST_F(MainScreenTest, asks_for_an_action_before_a_movie) {
    main.showAnim();
    main.share();
    EXPECT_EQ(alerts.title(), "No recorded actions");
    EXPECT_EQ(main.screen(), nullptr);
    alerts.escape();
    record("Left In", 2, 1);
    main.share();
    EXPECT_EQ(main.screenView(), "ExportSettings");
    const auto sheet = [this] { return qobject_cast<ExportSettingsController*>(main.screen()); };
    ASSERT_NE(sheet(), nullptr);
    sheet()->cancel();
    EXPECT_EQ(main.screen(), nullptr);
    main.share();
    ASSERT_NE(sheet(), nullptr);
    sheet()->start();
    EXPECT_EQ(main.screenView(), "Export");
}

TEST_F(MainScreenTest, shows_one_screen_at_a_time_until_it_is_dismissed) {
    main.showAnim();
    record("Left In", 2, 1);
    settle();
    model.start();
    signals().messageSignal.fire("Undo Left In");
    main.controlMenu.showHistoryAction();
    settle();
    ASSERT_EQ(main.screenView(), "History");
    loop().runFor(0.5);
    const auto* const label = main.property("valueLabel").value<QObject*>();
    EXPECT_TRUE(label->property("isHidden").toBool()) << "the message belongs to the screen below";
    EXPECT_FALSE(model.isPlaying());
    main.controlMenu.showHistoryAction();
    settle();
    qobject_cast<HistoryController*>(main.screen())->dismissViewController();
    settle();
    EXPECT_EQ(main.screen(), nullptr);
}

} // namespace

} // namespace zelvo::ui
