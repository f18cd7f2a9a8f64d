// SPDX-License-Identifier: MIT
#include "audio/AudioPlayer.h"
#include "media/MediaFixture.h"
#include "ui/UiFixture.h"
#include "ui/audio/AudioViewController.h"
#include "ui/audio/RulerView.h"

#include <QCoreApplication>

#include <cmath>
#include <filesystem>
#include <string>
#include <vector>

namespace zelvo::ui {
namespace {

class AudioEditorTest : public test::UiTest {
protected:
    AudioEditorTest() {
        signals().messageSignal.subscribe(
            listening, [this](const std::string& word) { words.push_back(word); });
    }

    std::filesystem::path song(const std::string& name, double seconds) {
        auto file = folder.path() / name;
        media::writeWav(file, 8000, seconds, media::sine(440, 0.5));
        return file;
    }

    /// 20 s with a click at each half second.
    std::filesystem::path clicks() {
        auto file = folder.path() / "clicks.wav";
        media::writeWav(file, 22050, 20, [](double t) {
            return std::sin(t * 2000) * std::exp(-std::fmod(t, 0.5) * 40);
        });
        return file;
    }

    void take(double seconds) { editor.assignSong(song("song.wav", seconds), "Song"); }

    /// Drags by so many seconds in two steps; the last one counts.
    static void drag(Dragger& dragger, double seconds) {
        dragger.beginDrag(5);
        dragger.dragTo(5 - seconds);
        dragger.dragTo(5 + seconds);
        dragger.endDrag();
    }

    [[nodiscard]] bool sounds() const {
        return player.avAudioPlayer && player.avAudioPlayer->isPlaying();
    }

    audio::AudioPlayer& player = model.audioPlayer();
    std::vector<std::string> words;
    AudioViewController editor{services};
};

TEST_F(AudioEditorTest, DragsKeepToTheirLimits) {
    struct Row {
        double length; // of the song
        double in;
        double end;
        DraggedPart part;
        double by;
        double preRoll; // afterwards; 3 before
        double newIn;
        double newEnd;
    };

    using enum DraggedPart;
    // clang-format off
    const std::vector<Row> rows{
        {20,  4, 12, stretch,    2, 5,  4,   12 },
        {20,  4, 12, stretch,   -9, 0,  4,   12 },
        {20,  4, 12, start,      2, 3,  6,   12 },
        {20,  4, 12, start,     -9, 3,  0,   12 },
        {20,  4, 12, start,     99, 3, 10,   12 },
        {20,  4, 12, end,        2, 3,  4,   14 },
        {20,  4, 12, end,      -99, 3,  4,    6 },
        {20,  4, 12, end,       99, 3,  4,   20 },
        {1.5, 0, 1.5, start,     1, 3, -0.5,  1.5},
        {1.5, 0, 1.5, end,      -1, 3,  0,    1.5},
    };
    // clang-format on
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message() << static_cast<int>(row.part) << " by " << row.by);
        take(row.length);
        player.audioPreRoll = 3;
        player.audioIn = row.in;
        player.audioEnd = row.end;
        drag(
            row.part == stretch ? editor.draggableView
            : row.part == start ? editor.leftDragger
                                : editor.rightDragger,
            row.by);
        EXPECT_NEAR(player.audioPreRoll, row.preRoll, 1e-6);
        EXPECT_NEAR(player.audioIn, row.newIn, 1e-6);
        EXPECT_NEAR(player.audioEnd, row.newEnd, 1e-6);
    }
}

TEST_F(AudioEditorTest, KeysMoveByTenthsSecondsAndToTheLimits) {
    take(20);
    player.audioPreRoll = 1;
    player.audioEnd = 5; // the movie has 8
    EXPECT_TRUE(editor.draggableView.pressKey(Qt::Key_Right, Qt::NoModifier));
    EXPECT_NEAR(player.audioPreRoll, 1.1, 1e-9);
    EXPECT_TRUE(editor.draggableView.pressKey(Qt::Key_Left, Qt::ShiftModifier));
    EXPECT_NEAR(player.audioPreRoll, 0.1, 1e-9);
    EXPECT_TRUE(editor.draggableView.pressKey(Qt::Key_End, Qt::NoModifier));
    EXPECT_NEAR(player.songEnd(), model.duration(), 1e-9);
    EXPECT_TRUE(editor.draggableView.pressKey(Qt::Key_Home, Qt::NoModifier));
    EXPECT_EQ(player.audioPreRoll, 0);
    EXPECT_TRUE(editor.rightDragger.pressKey(Qt::Key_End, Qt::NoModifier));
    EXPECT_NEAR(player.audioEnd, 20, 1e-9);
    EXPECT_TRUE(editor.leftDragger.pressKey(Qt::Key_End, Qt::NoModifier));
    EXPECT_NEAR(player.audioIn, 18, 1e-9);
    EXPECT_TRUE(editor.leftDragger.pressKey(Qt::Key_Home, Qt::NoModifier));
    EXPECT_EQ(player.audioIn, 0);
    EXPECT_TRUE(editor.rightDragger.pressKey(Qt::Key_Home, Qt::NoModifier));
    EXPECT_NEAR(player.audioEnd, 2, 1e-9);
    EXPECT_FALSE(editor.leftDragger.pressKey(Qt::Key_Up, Qt::NoModifier));
}

TEST_F(AudioEditorTest, TheFadeButtonStepsThroughTheStatesAndNamesThem) {
    player.fadeState = audio::FadeState::noFade;
    for (const char* const word : {"Fade In", "Fade Out", "Fade In+Out", "No Fade"}) {
        editor.fadesButton.click();
        EXPECT_EQ(words.back(), word);
        EXPECT_EQ(editor.fadesButton.name(), word);
    }
    EXPECT_EQ(player.fadeState, audio::FadeState::noFade);
    EXPECT_EQ(editor.fadesButton.image(), "NoFade");
    editor.toggleFades();
    const AudioViewController next(services);
    EXPECT_EQ(next.fadesButton.image(), "FadeIn") << "the state outlives the panel";
}

TEST_F(AudioEditorTest, ThePreviewPlaysTheMoviesTimeAndEndsByItself) {
    take(20);
    player.audioPreRoll = 1;
    player.audioEnd = 3;
    editor.togglePlay();
    EXPECT_EQ(editor.playPauseButton.image(), "PauseButton");
    loop().runFor(0.9);
    EXPECT_FALSE(sounds());
    loop().runFor(1);
    EXPECT_TRUE(sounds());
    EXPECT_NEAR(editor.currentTimerTime(), 1.9, 0.03);
    loop().runFor(2.2);
    EXPECT_FALSE(editor.isPreviewing());
    EXPECT_EQ(editor.playPauseButton.image(), "PlayButton");

    editor.togglePlay();
    loop().runFor(2);
    editor.togglePlay();
    EXPECT_FALSE(editor.isPreviewing());
    EXPECT_FALSE(sounds());

    player.clearSong();
    editor.refresh();
    editor.togglePlay();
    loop().runFor(0.1);
    EXPECT_FALSE(editor.isPreviewing()) << "there is no song";
}

TEST_F(AudioEditorTest, WhatEndsThePreview) {
    const auto isEndedBy = [this](auto call) {
        take(20);
        editor.togglePlay();
        loop().runFor(0.5);
        EXPECT_TRUE(sounds());
        call();
        loop().runFor(0.1);
        return !editor.isPreviewing();
    };
    EXPECT_TRUE(isEndedBy([this] { drag(editor.draggableView, 1); }));
    EXPECT_TRUE(isEndedBy([this] { drag(editor.leftDragger, 1); }));
    EXPECT_FALSE(isEndedBy([this] { drag(editor.rightDragger, 1); }));
    EXPECT_TRUE(
        isEndedBy([this] { editor.draggableView.pressKey(Qt::Key_Right, Qt::NoModifier); }));
    EXPECT_TRUE(isEndedBy([this] { editor.assignSong(song("other.wav", 9), "Other"); }));
    EXPECT_TRUE(isEndedBy([this] { editor.importButton.click(); }));
    answer("Cancel");
    EXPECT_TRUE(isEndedBy([this] { editor.trashButton.click(); }));
    answer("Cancel");
    EXPECT_TRUE(isEndedBy([this] { model.toggle(); }));
    EXPECT_TRUE(model.isPlaying());
    editor.togglePlay();
    EXPECT_FALSE(model.isPlaying()) << "the preview ends a run, too";
    editor.stop();
    {
        AudioViewController other(services);
        other.togglePlay();
        loop().runFor(0.5);
        EXPECT_TRUE(sounds());
    }
    EXPECT_FALSE(sounds()) << "the panel was closed";
}

TEST_F(AudioEditorTest, AMarkOfAPressSeeksThere) {
    const double countIn = model.startCounter();
    record("Late", countIn + 4, 2);
    record("Early", countIn + 1.5, 1);
    record("Early's letter", countIn + 1.6, 1, false);
    record("In the count-in", countIn - 1, 3);
    signals().undoStateSignal.fire();
    ASSERT_EQ(editor.marks().size(), 2);
    EXPECT_EQ(editor.marks()[0], (PressMark{1.5, "0:01.50", "Early"}));
    take(20);
    player.audioIn = 2;
    player.audioEnd = 10;
    editor.seekPreview(editor.marks()[1].time);
    EXPECT_TRUE(sounds());
    EXPECT_NEAR(player.avAudioPlayer->currentTime(), 6, 0.02);
    loop().runFor(1);
    EXPECT_NEAR(editor.currentTimerTime(), 5, 0.05);
    EXPECT_NEAR(player.avAudioPlayer->currentTime(), 7, 0.05);
    editor.seekPreview(0);
    EXPECT_FALSE(sounds());
    loop().runFor(0.5);
    EXPECT_NEAR(player.avAudioPlayer->currentTime(), 2.5, 0.05);
}

TEST_F(AudioEditorTest, TheTitleFollowsTheSongAndDeletingAsks) {
    QString title = "?";
    editor.setSongTitleClosure([&title](const QString& told) { title = told; });
    EXPECT_EQ(title, "");
    EXPECT_FALSE(editor.trashButton.isEnabled());
    take(5);
    EXPECT_EQ(title, "Song");
    editor.trashButton.click();
    EXPECT_EQ(alerts.title(), "Remove Audio?");
    answer("Cancel");
    EXPECT_TRUE(editor.hasSong());
    editor.trashButton.click();
    answer("Yes");
    EXPECT_FALSE(editor.hasSong());
    EXPECT_EQ(title, "");
}

TEST_F(AudioEditorTest, TheImportOffersTwoSources) {
    int albums = 0;
    int dialogs = 0;
    editor.presentMusicLibrary = [&albums] { ++albums; };
    QObject::connect(&editor, &AudioViewController::fileAsked, &editor, [&dialogs] { ++dialogs; });
    editor.importButton.click();
    EXPECT_EQ(alerts.title(), "Import");
    EXPECT_EQ(alerts.message(), "from ...");
    answer("Music");
    EXPECT_EQ(albums, 1);
    editor.importButton.click();
    answer("Documents");
    EXPECT_EQ(dialogs, 1);
    EXPECT_EQ(albums, 1);
}

TEST_F(AudioEditorTest, ASongThatGoesAwayIsReportedOnce) {
    take(5);
    std::filesystem::remove(folder.path() / "song.wav");
    editor.togglePlay();
    EXPECT_EQ(alerts.title(), "The music is gone.");
    answer("Ok");
    editor.togglePlay();
    QCoreApplication::processEvents();
    EXPECT_FALSE(alerts.isShowing());
    const AudioViewController next(services);
    EXPECT_TRUE(alerts.isShowing()) << "the panel was opened again";
}

TEST_F(AudioEditorTest, BeatsFollowTheStretch) {
    SongBeats beats(services);
    AudioViewController other(services, &beats);
    other.assignSong(clicks(), "Clicks");
    loop().runFor(1);
    const auto first = beats.marks();
    ASSERT_GT(first.size(), 10);
    other.leftDragger.pressKey(Qt::Key_Right, Qt::NoModifier);
    loop().runFor(1);
    ASSERT_GT(beats.marks().size(), 10);
    EXPECT_NEAR(std::fmod(first[5] - beats.marks()[5] + 10, 0.5), 0.1, 0.02)
        << "the song has slid under the stretch";
    other.leftDragger.beginDrag(0);
    other.leftDragger.dragTo(0.1);
    other.leftDragger.endDrag();
    loop().runFor(1);
    EXPECT_GT(beats.marks().size(), 10);
    EXPECT_FALSE(beats.isSnapping());
    other.snapButton.click();
    EXPECT_TRUE(beats.isSnapping());
}

TEST_F(AudioEditorTest, PressesSnapToTheBeatsThatAreInTheMusicAndInTheMovie) {
    SongBeats beats(services);
    const auto place = [&](double preRoll) {
        player.loadSong(clicks(), "Clicks");
        player.audioPreRoll = preRoll;
        player.audioIn = 2.1; // so the first beat is 0.4 s behind the pre-roll
        player.audioEnd = 6;
        beats.refresh();
        loop().runFor(1);
        ASSERT_EQ(beats.marks().size(), 7);
    };
    // Movie times; the clock also has the count-in.
    const auto snapped = [&](double time) {
        const double countIn = model.startCounter();
        return controller().snapTime(time + countIn) - countIn;
    };
    place(1);
    EXPECT_EQ(snapped(1.5), 1.5) << "it is off at first";
    beats.setSnapping(true);
    for (const auto& [time, to] :
         {std::pair{1.5, 1.4}, {1.62, 1.4}, {1.68, 1.9}, {4.6, 4.4}, {1.1, 1.1}, {4.7, 4.7}})
        EXPECT_NEAR(snapped(time), to, 0.01) << "of " << time;
    place(5.7); // beats at 6.1, 6.6, 7.1, 7.6, and at 8.1, where the movie has ended
    EXPECT_NEAR(snapped(7.5), 7.6, 0.01);
    EXPECT_NEAR(snapped(7.95), 7.95, 1e-9);
}

TEST(RulerViewTest, LabelsComeEveryFiveSecondsAtRestAndKeepTheirDistance) {
    const RulerScale& rest = RulerScale::at(RulerView::multiplier);
    EXPECT_EQ(rest.tickSeconds, 1);
    EXPECT_EQ(rest.ticksALabel, 5);
    EXPECT_EQ(rest.label(75), "75");
    EXPECT_EQ(RulerScale::at(2).label(9), "1:30");
    for (int i = 0; i < 96; ++i) {
        const double zoom = 0.03 * std::pow(1.1, i);
        const RulerScale& scale = RulerScale::at(zoom);
        EXPECT_GE(scale.tickSeconds * zoom, 14) << zoom;
        EXPECT_GE(scale.tickSeconds * scale.ticksALabel * zoom, 70) << zoom;
    }
}

} // namespace
} // namespace zelvo::ui
