// SPDX-License-Identifier: MIT
#include "ui/menus/ControlMenu.h"

#include "ui/UiFixture.h"
#include "ui/menus/TimePickerView.h"

#include <array>
#include <utility>

namespace zelvo::test {

namespace {

class ControlMenuTest : public UiTest {
protected:
    ControlMenuTest() {
        menu.playAction = [this](bool) { model.toggle(); };
        menu.undoAction = [this] { controller().undo(); };
        menu.redoAction = [this] { controller().redo(); };
        menu.deleteAllActions = [this] { controller().deleteAll(); };
        menu.setButtonsEnabled(true);
    }

    void recordOne() {
        menu.record();
        loop().runFor(3);
        controller().addAction(
            [] {}, controller().newIdentifier(), "Left In", actions::RegisterUndo::yes);
        loop().runFor(0.5);
        menu.record();
        loop().drain();
    }

    [[nodiscard]] ui::TimePickerView& picker() const {
        return *qobject_cast<ui::TimePickerView*>(alerts.content());
    }

    /// Whether undo, redo, history and "delete all" are enabled.
    [[nodiscard]] std::array<bool, 4> usable() const {
        return {
            menu.undoButton.isEnabled(),
            menu.redoButton.isEnabled(),
            menu.historyButton.isEnabled(),
            menu.deleteAllButton.isEnabled()};
    }

    ui::ControlMenu menu{services};
};

using Usable = std::array<bool, 4>;

TEST_F(ControlMenuTest, TheRecordButtonCountsDownThenUpAndBackToTheStart) {
    const ui::RecordButton& button = menu.recordButton;
    EXPECT_EQ(button.title(), "0:00.00");
    menu.record();
    loop().runFor(0.5);
    EXPECT_EQ(button.title(), "-0:01.51");
    EXPECT_EQ(button.image(), "PauseButton");
    EXPECT_EQ(button.fill(), ui::kRecordColor);
    loop().runFor(1.75);
    EXPECT_EQ(button.title().left(5), "0:00.");
    menu.record();
    loop().drain();
    EXPECT_FALSE(model.isPlaying());
    EXPECT_EQ(button.title(), "-0:02.00");
    EXPECT_EQ(button.image(), "RecordButton");
    EXPECT_EQ(button.fill(), ui::kClearButtonColor);
}

TEST_F(ControlMenuTest, KeepsItsIdleLookWhileAMovieIsWritten) {
    recordOne();
    const QString before = menu.recordButton.title();
    bool hasMoved = false;
    QObject::connect(&menu.recordButton, &ui::MyButton::changed, [&] {
        hasMoved =
            hasMoved || menu.recordButton.title() != before || menu.recordButton.isMySelected();
    });
    model.setDuration(2);
    outcome.reset();
    ASSERT_TRUE(model.startMovie());
    const foundation::Timer waiting = loop().expectPosts();
    ASSERT_TRUE(loop().runUntil([&] { return model.isPlaying() && model.time() > 3; }));
    EXPECT_FALSE(hasMoved);
    ASSERT_TRUE(loop().runUntil([this] { return outcome.has_value(); }));
}

TEST_F(ControlMenuTest, OffersWhatThereIsToUndoRedoAndDelete) {
    EXPECT_EQ(usable(), (Usable{false, false, false, false}));
    recordOne();
    EXPECT_EQ(usable(), (Usable{true, false, true, true}));
    menu.undo();
    loop().drain();
    EXPECT_EQ(usable(), (Usable{false, true, false, false}));
    menu.redo();
    loop().drain();
    EXPECT_EQ(usable(), (Usable{true, false, true, true}));
}

TEST_F(ControlMenuTest, DeletesEverythingOnlyAfterAYes) {
    recordOne();
    menu.askToDeleteAll();
    EXPECT_EQ(alerts.title(), "Delete all recorded actions?");
    alerts.escape();
    loop().drain();
    EXPECT_EQ(controller().recordedActions().size(), 1u);
    menu.askToDeleteAll();
    answer("Delete");
    loop().runFor(0.1);
    EXPECT_EQ(usable(), (Usable{false, false, false, false}));
}

TEST_F(ControlMenuTest, DoesNothingByKeyWhileItIsDimmed) {
    menu.setButtonsEnabled(false);
    menu.record();
    menu.askForDuration();
    loop().drain();
    EXPECT_FALSE(model.isPlaying());
    EXPECT_FALSE(alerts.isShowing());
    EXPECT_DOUBLE_EQ(menu.alpha(), 0.1);
}

TEST_F(ControlMenuTest, TheDurationDialogStopsTheRunAndKeepsOnlyWhatIsConfirmed) {
    model.setDuration(75);
    menu.record();
    loop().runFor(1);
    menu.askForDuration();
    EXPECT_FALSE(model.isPlaying());
    EXPECT_EQ(picker().minutes(), 1);
    EXPECT_EQ(picker().seconds(), 15);
    picker().select(ui::TimePickerView::minutesWheel, 3);
    answer("Cancel");
    loop().drain();
    EXPECT_EQ(model.duration(), 75);

    menu.askForDuration();
    picker().select(ui::TimePickerView::minutesWheel, 2);
    answer("Ok");
    loop().drain();
    EXPECT_EQ(model.duration(), 135);
}

TEST(TimePicker, DoesNotLetUnderTwoSecondsBePicked) {
    struct Row {
        double duration;
        int component;
        int row;
        int minutes;
        int seconds;
    };

    for (const Row& row :
         {Row{8, 1, 1, 0, 2}, // snaps back
          Row{5, 0, 1, 1, 5},
          Row{61, 0, 0, 0, 2},
          Row{61, 1, 0, 1, 0}, // a minute is long enough
          Row{8, 1, 59, 0, 59},
          Row{3 * 3600 + 62, 1, 2, 1, 2}, // hours are ignored
          Row{8, 0, 75, 59, 8},           // no such row
          Row{8, 2, 1, 0, 8}}) {          // no such wheel
        ui::TimePickerView picker(row.duration);
        picker.select(row.component, row.row);
        EXPECT_EQ(picker.minutes(), row.minutes) << row.duration << ", row " << row.row;
        EXPECT_EQ(picker.seconds(), row.seconds) << row.duration << ", row " << row.row;
    }
    ui::TimePickerView picker(8);
    for (const auto& [digit, seconds] : {std::pair(5, 5), {9, 59}, {6, 6}, {0, 2}, {7, 7}}) {
        picker.type(ui::TimePickerView::secondsWheel, digit);
        EXPECT_EQ(picker.seconds(), seconds)
            << "60 is no number of seconds, so the 0 is a first digit";
    }
}

} // namespace

} // namespace zelvo::test
