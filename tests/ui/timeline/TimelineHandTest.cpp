// SPDX-License-Identifier: MIT
// The pointer on the time line, against the performance that comes out.
#include "audio/AudioPlayer.h"
#include "media/MediaFixture.h"
#include "ui/timeline/TimelineFixture.h"

#include <cmath>

namespace zelvo::test {

namespace {

class TimelineHandTest : public TimelineTest {};

constexpr int kShift = Qt::ShiftModifier;
constexpr int kControl = Qt::ControlModifier;
constexpr int kAlt = Qt::AltModifier;

} // namespace

TEST_F(TimelineHandTest, PicksByClicks) {
    EXPECT_EQ(told(), untouched);
    click(middle("Left In"));
    EXPECT_EQ(picked(), "Left In");
    click(middle("Right Out"), kShift);
    click(middle("Blur"), kControl);
    EXPECT_EQ(picked(), "Left In, Blur, Right Out");
    click(middle("Left In"), kShift);
    EXPECT_EQ(picked(), "Blur, Right Out") << "a second time lets go";
    click(middle("Blur"));
    EXPECT_EQ(picked(), "Blur") << "of several picked ones, the clicked one stays";
    EXPECT_FALSE(model.isParked()) << "picking does not move the playhead";
    click({30, 30});
    EXPECT_EQ(picked(), "");
    EXPECT_EQ(told(), untouched);
}

TEST_F(TimelineHandTest, MovesAllThatIsPickedInOneStepOfUndo) {
    click(middle("Left In"));
    click(middle("Camera drag"), kShift);
    drag(middle("Left In"), 45);
    EXPECT_EQ(told(), untouched) << "nothing changes before the release";
    EXPECT_NEAR(line.hand.shift(), 45, 0.01);
    EXPECT_EQ(line.hand.timeText(), "1.45");
    drop();
    EXPECT_EQ(told(), "1.45 Left In, 2.00 Blur 1.00, 4.00 Left Out, 4.20 Right Out, 5.45");
    EXPECT_EQ(picked(), "Left In, Camera drag");
    undo();
    EXPECT_EQ(told(), untouched);
    drag(middle("Blur"), 40);
    drop();
    EXPECT_EQ(told(), "1.00 Left In, 2.40 Blur 1.00, 4.00 Left Out, 4.20 Right Out, 5.00")
        << "a mark that is not picked moves alone";
}

TEST_F(TimelineHandTest, KeepsWhatItMovesWithinThePerformance) {
    line.pickAll();
    drag(middle("Left Out"), -900, 0, kControl);
    drop();
    EXPECT_EQ(told(), "0.00 Left In, 1.00 Blur 1.00, 3.00 Left Out, 3.20 Right Out, 4.00");
    drag(middle("Left Out"), 1800, 0, kControl);
    drop();
    EXPECT_EQ(told(), "4.00 Left In, 5.00 Blur 1.00, 7.00 Left Out, 7.20 Right Out, 8.00");
}

TEST_F(TimelineHandTest, LengthensAHoldAtItsEndOnly) {
    const QRectF blur = mark("Blur").place;
    EXPECT_TRUE(line.hand.isEndAt({blur.right() - 2, blur.center().y()}, false));
    EXPECT_FALSE(line.hand.isEndAt({blur.left() + 2, blur.center().y()}, false));
    const QRectF press = mark("Left In").place;
    EXPECT_FALSE(line.hand.isEndAt({press.right() - 2, press.center().y()}, false));
    drag({blur.right() - 2, blur.center().y()}, 50);
    EXPECT_EQ(line.hand.timeText(), "3.50");
    drop();
    EXPECT_EQ(told(), "1.00 Left In, 2.00 Blur 1.50, 4.00 Left Out, 4.20 Right Out, 5.00");
    drag({mark("Blur").place.right() - 2, blur.center().y()}, -700);
    drop();
    EXPECT_EQ(told(), "1.00 Left In, 2.00 Blur 0.02, 4.00 Left Out, 4.20 Right Out, 5.00")
        << "a frame is the least";
    undo();
    undo();
    EXPECT_EQ(told(), untouched);
}

TEST_F(TimelineHandTest, PicksWithAFrame) {
    drag({390, 14}, 90, 32, kShift);
    EXPECT_EQ(picked(), "Left Out, Right Out") << "already while it is drawn";
    EXPECT_FALSE(line.hand.frame().isEmpty());
    drop();
    EXPECT_TRUE(line.hand.frame().isEmpty());
    drag({310, 14}, -300, 32, kShift);
    EXPECT_EQ(picked(), "Left In, Blur, Left Out, Right Out") << "it adds";
    EXPECT_TRUE(line.hand.cancel());
    EXPECT_EQ(picked(), "Left Out, Right Out");
    EXPECT_FALSE(model.isParked());
}

TEST_F(TimelineHandTest, CopiesWithAlt) {
    drag(middle("Left In"), 250, 0, kAlt);
    EXPECT_TRUE(line.hand.isCopying());
    drop();
    EXPECT_EQ(
        told(), "1.00 Left In, 2.00 Blur 1.00, 3.50 Left In, 4.00 Left Out, 4.20 Right Out, 5.00");
    ASSERT_EQ(line.picked().size(), 1U);
    EXPECT_NE(*line.picked().begin(), mark("Left In").act.identifier) << "the copy is picked";
    undo();
    EXPECT_EQ(told(), untouched);
}

TEST_F(TimelineHandTest, SnapsToActsThePlayheadAndBeats) {
    drag(middle("Left In"), 97); // Blur begins 100 further
    EXPECT_NEAR(line.hand.guideX(), 200, 0.01);
    EXPECT_NEAR(line.hand.shift(), 100, 0.01);
    line.hand.move(middle("Left In") + QPointF(97, 0), kControl);
    EXPECT_NEAR(line.hand.shift(), 97, 0.01) << "Ctrl holds it off";
    EXPECT_LT(line.hand.guideX(), 0);
    line.hand.cancel();
    drag(middle("Left In"), 5);
    EXPECT_NEAR(line.hand.shift(), 5, 0.01) << "not to where it was itself";
    line.hand.cancel();

    line.seek(6.5);
    loop().runFor(0.1);
    drag(middle("Camera drag"), 146);
    EXPECT_NEAR(line.hand.guideX(), 650, 1) << "the playhead";
    line.hand.cancel();
    const QRectF blur = mark("Blur").place;
    drag({blur.right() - 2, blur.center().y()}, 96);
    drop();
    EXPECT_EQ(told(), "1.00 Left In, 2.00 Blur 2.00, 4.00 Left Out, 4.20 Right Out, 5.00")
        << "the end of a hold snaps, too";
}

TEST_F(TimelineHandTest, SnapsToBeatsIfTheUserWantsIt) {
    const auto song = folder.path() / "clicks.wav"; // two a second
    media::writeWav(song, 22050, 20, [](double t) {
        return std::sin(t * 2000) * std::exp(-std::fmod(t, 0.5) * 40);
    });
    audio::AudioPlayer& player = model.audioPlayer();
    player.loadSong(song, "Clicks");
    player.audioPreRoll = 0.25;
    line.refresh();
    loop().runFor(1);
    EXPECT_TRUE(line.music.beats().isEmpty());
    drag(middle("Left In"), 22);
    EXPECT_NEAR(line.hand.shift(), 22, 0.01);
    line.hand.cancel();
    line.music.setSnapping(true);
    ASSERT_GT(line.music.beats().size(), 8);
    drag(middle("Left In"), 22);
    EXPECT_NEAR(line.hand.guideX(), 125, 2);
    drop();
    EXPECT_NEAR(mark("Left In").act.begins, 1.25, 0.02);
}

TEST_F(TimelineHandTest, LeavesEverythingWhenADragIsCancelled) {
    drag(middle("Left Out"), 120);
    EXPECT_TRUE(key(Qt::Key_Escape));
    EXPECT_EQ(line.hand.shift(), 0);
    drop();
    EXPECT_EQ(told(), untouched);
    EXPECT_FALSE(controller().undoManager.undoTitle().starts_with("Move"));
    drag(middle("Left Out"), 2);
    drop();
    EXPECT_EQ(told(), untouched) << "a hand that trembles does not drag";
    line.hand.press(middle("Left Out"), 0, true);
    line.hand.move(middle("Left Out") + QPointF(8, 2), 0);
    drop();
    EXPECT_EQ(told(), untouched) << "a finger trembles more";
}

TEST_F(TimelineHandTest, GivesFingersRoom) {
    const QRectF place = mark("Left In").place;
    const QPointF below(place.center().x(), place.bottom() + 3);
    EXPECT_EQ(line.hand.actAt(below, false), -1);
    EXPECT_EQ(line.hand.actAt(below, true), mark("Left In").act.identifier);
    // Between two lanes, the nearer mark.
    const QPointF between(mark("Right Out").place.center().x(), mark("Right Out").place.top() + 1);
    EXPECT_EQ(line.hand.actAt(between, true), mark("Right Out").act.identifier);
}

TEST_F(TimelineHandTest, DoesNothingDuringARun) {
    click(middle("Left In"));
    drag(middle("Left In"), 60);
    model.toggle();
    loop().runFor(0.2);
    drop();
    EXPECT_EQ(told(), untouched) << "a run ends the drag";
    const double before = model.time();
    drag(middle("Left In"), 60);
    drop();
    click({700, 30});
    key(Qt::Key_Delete);
    EXPECT_TRUE(model.isPlaying());
    EXPECT_GT(model.time(), before);
    EXPECT_EQ(told(), untouched);
}

} // namespace zelvo::test
