// SPDX-License-Identifier: MIT
#include "catalogue/Catalogue.h"
#include "ui/timeline/TimelineFixture.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QSignalSpy>

#include <algorithm>

namespace zelvo::test {

namespace {

constexpr int kShift = Qt::ShiftModifier;
constexpr int kControl = Qt::ControlModifier;
constexpr int kAlt = Qt::AltModifier;
constexpr double kFrame = 1.0 / 60;

} // namespace

TEST_F(TimelineTest, ShowsActsAsLongAsTheyLast) {
    ASSERT_EQ(line.marksNow().size(), 5U);
    EXPECT_NEAR(mark("Left In").place.x(), 100, 1.7);
    EXPECT_NEAR(mark("Left In").place.width(), 85, 2) << "the base duration";
    EXPECT_NEAR(mark("Blur").place.width(), 100, 2);
    EXPECT_NEAR(mark("Camera drag").place.width(), 50, 4);
    EXPECT_EQ(mark("Left Out").place.y(), mark("Left In").place.y());
    EXPECT_GT(mark("Right Out").place.y(), mark("Left Out").place.y()) << "they overlap";
    EXPECT_EQ(mark("Left In").name, "Left In, TX1, TX2, at 1.00 seconds");
    EXPECT_EQ(mark("Left In").details, QString::fromUtf8("TX1, TX2 · 1.00 s · Normal"));
    EXPECT_EQ(
        mark("Blur").details,
        QString::fromUtf8("TX1, TX2, IMG, OBJ · 2.00 s · held 1.00 s · Normal"));
    EXPECT_NE(mark("Left In").color, mark("Left Out").color);
    EXPECT_EQ(mark("Left Out").color, mark("Right Out").color);
    model.setDuration(16);
    EXPECT_NEAR(mark("Left In").place.x(), 50, 1) << "the strip is as long as the performance";
}

TEST_F(TimelineTest, MovesThePlayheadAndTheStage) {
    click({300, 4});
    EXPECT_TRUE(model.isParked());
    EXPECT_NEAR(*model.playhead(), 3, kFrame);
    EXPECT_NEAR(line.playheadX(), 300, 2);
    key(Qt::Key_Right);
    key(Qt::Key_Right);
    EXPECT_NEAR(*model.playhead(), 3 + 2 * kFrame, 0.001);
    key(Qt::Key_Left);
    key(Qt::Key_Right, kShift);
    EXPECT_NEAR(*model.playhead(), 4 + kFrame, 0.001);
    key(Qt::Key_End);
    EXPECT_NEAR(*model.playhead(), 8, kFrame);
    key(Qt::Key_Right, kShift);
    EXPECT_NEAR(*model.playhead(), 8, kFrame) << "the end";
    key(Qt::Key_Home);
    EXPECT_FALSE(model.playhead().has_value());
    EXPECT_EQ(line.playhead(), 0);
}

TEST_F(TimelineTest, SeeksOnceAFrameWhileScrubbedAndEndsWhereTheHandIs) {
    int seeks = 0;
    onTime([&](const ui::TimeState& state) { seeks += state.isParked ? 1 : 0; });
    line.hand.press({100, 4}, 0, false);
    for (int x = 101; x <= 500; ++x)
        line.hand.move({double(x), 4}, 0);
    EXPECT_EQ(seeks, 1) << "all in one turn of the loop";
    EXPECT_NEAR(line.playheadX(), 500, 0.01) << "the line follows the hand at once";
    loop().runFor(0.1);
    EXPECT_EQ(seeks, 2);
    EXPECT_NEAR(*model.playhead(), 5, kFrame);
    line.hand.release();
    loop().runFor(1);
    EXPECT_EQ(seeks, 2);
}

TEST_F(TimelineTest, PlaysFromThePlayheadAndPausesThere) {
    const std::string before = told();
    line.seek(2);
    loop().runFor(0.1);
    line.playButton.click();
    EXPECT_TRUE(model.isPlaying());
    EXPECT_FALSE(model.recordsActs());
    loop().runFor(1);
    EXPECT_EQ(line.playButton.image(), "PauseButton");
    EXPECT_NEAR(line.playhead(), 3, 3 * kFrame);
    line.playButton.click();
    loop().runFor(0.1);
    EXPECT_EQ(line.playButton.image(), "PlayButton");
    EXPECT_TRUE(model.isParked());
    EXPECT_NEAR(*model.playhead(), 3, 3 * kFrame);
    key(Qt::Key_Home);
    model.toggle(); // records
    loop().runFor(0.1);
    EXPECT_FALSE(line.playButton.isEnabled());
    model.toggle();
    EXPECT_EQ(told(), before);
}

TEST_F(TimelineTest, PlaysFromThePlaceThatIsStillToBeShown) {
    line.seek(2);
    line.seek(4); // waits for its turn
    line.playButton.click();
    loop().runFor(0.1);
    EXPECT_TRUE(model.isPlaying());
    EXPECT_NEAR(line.playhead(), 4.1, 3 * kFrame);
}

TEST_F(TimelineTest, DoesAllByKeys) {
    key(Qt::Key_Down);
    EXPECT_EQ(picked(), "Left In");
    key(Qt::Key_Down);
    key(Qt::Key_Down, kShift);
    EXPECT_EQ(picked(), "Blur, Left Out");
    key(Qt::Key_Up);
    EXPECT_EQ(picked(), "Left In");
    key(Qt::Key_Up);
    EXPECT_EQ(picked(), "Left In") << "there is none before";
    for (int i = 0; i < 6; ++i)
        key(Qt::Key_Right, kAlt);
    key(Qt::Key_Right, kAlt | kShift);
    EXPECT_EQ(told(), "2.00 Blur 1.00, 2.10 Left In, 4.00 Left Out, 4.20 Right Out, 5.00");
    EXPECT_EQ(picked(), "Left In");
    key(Qt::Key_Up);
    for (int i = 0; i < 6; ++i)
        key(Qt::Key_Plus);
    key(Qt::Key_Minus);
    EXPECT_EQ(told(), "2.00 Blur 1.08, 2.10 Left In, 4.00 Left Out, 4.20 Right Out, 5.00");
    key(Qt::Key_Delete);
    EXPECT_EQ(told(), "2.10 Left In, 4.00 Left Out, 4.20 Right Out, 5.00");
    key(Qt::Key_A, kControl);
    EXPECT_EQ(line.picked().size(), 4U);
    EXPECT_TRUE(key(Qt::Key_Escape));
    EXPECT_EQ(picked(), "");
    EXPECT_FALSE(key(Qt::Key_Escape)) << "the window's turn";
    EXPECT_FALSE(key(Qt::Key_1)) << "the catalogue's turn";
    for (int i = 0; i < 7 + 7 + 1; ++i)
        undo();
    EXPECT_EQ(told(), untouched);
}

TEST_F(TimelineTest, PastesAtThePlayheadUnlessSomethingElseWasCopied) {
    EXPECT_FALSE(line.takesKey(Qt::Key_V, kControl));
    click(middle("Left Out"));
    click(middle("Right Out"), kShift);
    key(Qt::Key_C, kControl);
    line.seek(6);
    loop().runFor(0.1);
    EXPECT_TRUE(line.takesKey(Qt::Key_V, kControl));
    key(Qt::Key_V, kControl);
    EXPECT_EQ(told(), untouched + ", 6.00 Left Out, 6.20 Right Out");
    EXPECT_EQ(picked(), "Left Out, Right Out");
    EXPECT_EQ(line.picked().size(), 2U);
    undo();
    EXPECT_EQ(told(), untouched);

    QGuiApplication::clipboard()->setText("a word");
    EXPECT_FALSE(line.takesKey(Qt::Key_V, kControl));
    key(Qt::Key_C, kControl); // nothing is picked: the copies are gone
    EXPECT_FALSE(line.takesKey(Qt::Key_V, kControl));
    click(middle("Left In"));
    key(Qt::Key_C, kControl);
    controller().deleteAll();
    EXPECT_FALSE(line.takesKey(Qt::Key_V, kControl)) << "numbers begin anew";
}

TEST_F(TimelineTest, ChangesWhatIsPickedFromTheMenu) {
    const auto row = [&](const QString& title) {
        const auto rows = line.menu.rows();
        const auto found = std::ranges::find(rows, title, &ui::MyButton::title);
        EXPECT_NE(found, rows.end()) << title.toStdString();
        return *found;
    };
    line.menu.open({5, 5});
    EXPECT_FALSE(row("Delete")->isEnabled()) << "nothing is picked";
    EXPECT_FALSE(row("Faster")->isEnabled());
    line.hand.pickForMenu(middle("Left In"), false);
    line.menu.open(middle("Left In"));
    EXPECT_EQ(picked(), "Left In");
    EXPECT_TRUE(row("Normal")->isMySelected());
    row("Faster")->click();
    EXPECT_FALSE(line.menu.isOpen());
    EXPECT_EQ(told(), "1.00 Left In Faster, 2.00 Blur 1.00, 4.00 Left Out, 4.20 Right Out, 5.00");
    EXPECT_NEAR(mark("Left In").place.width(), 42.5, 2);
    row("Duplicate")->click();
    EXPECT_EQ(line.marksNow().size(), 6U);
    EXPECT_EQ(told().substr(0, 40), "1.00 Left In Faster, 1.43 Left In Faster");
    row("Delete")->click();
    EXPECT_EQ(line.marksNow().size(), 5U);
    EXPECT_EQ(picked(), "");
    line.hand.pickForMenu(middle("Camera drag"), false);
    line.menu.open({});
    EXPECT_FALSE(row("Faster")->isEnabled()) << "a gesture has no speed";
    EXPECT_FALSE(row("Snap to beats")->isEnabled()) << "there is no music";
    model.toggle();
    loop().runFor(0.1);
    EXPECT_FALSE(line.menu.isOpen());
}

TEST_F(TimelineTest, FollowsARunAndWhatItRecords) {
    model.toggle();
    loop().runFor(2.5);
    EXPECT_NEAR(line.playhead(), 0.5, 3 * kFrame);
    const auto count = line.marksNow().size();
    const auto* const tab = catalogue::tabNamed("IN1");
    catalogue::press(
        *tab, tab->buttons()[1], {controller(), model.affectedNodes(), model.animationFactor()}, 1);
    loop().runFor(0.1);
    EXPECT_EQ(line.marksNow().size(), count + 1) << "a press is seen when it has come";
    EXPECT_NEAR(mark("Right In").act.begins, 0.5, 3 * kFrame);
    runToTheEnd();
    loop().runFor(0.1);
    EXPECT_NEAR(line.playheadX(), 800, 2);
}

TEST_F(TimelineTest, KeepsTheViewsOfMarksThatStay) {
    const QSignalSpy reset(line.marksObject(), &QAbstractItemModel::modelReset);
    QSignalSpy changed(line.marksObject(), &QAbstractItemModel::dataChanged);
    click(middle("Left In"));
    EXPECT_EQ(changed.count(), 1) << "only the picked one is drawn anew";
    drag(middle("Left In"), 30);
    drop();
    EXPECT_EQ(reset.count(), 0);
    const auto frames = changed.count();
    line.seek(2);
    loop().runFor(1);
    EXPECT_EQ(changed.count(), frames) << "the playhead moves alone";
    key(Qt::Key_Delete);
    EXPECT_EQ(reset.count(), 1);
}

} // namespace zelvo::test
