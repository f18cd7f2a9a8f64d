// SPDX-License-Identifier: MIT
#include "audio/AudioPlayer.h"

#include "audio/MidStretch.h"
#include "media/MediaFixture.h"
#include "platform/foundation/Folders.h"
#include "shared/FrameClock.h"

#include <array>
#include <cmath>
#include <tuple>

namespace zelvo::audio {
namespace {

constexpr double kFrame = shared::FrameClock::kStep;

class AudioPlayerTest : public media::MediaTest {
protected:
    AudioPlayerTest() {
        media::writeWav(file("song.wav"), 8000, 12.0, media::sine(440.0, 0.5));
        media::writeWav(file("short.wav"), 8000, 3.0, media::sine(440.0, 0.5));
    }

    /// Steps the player and the run loop tick by tick, from the count-in up to and including
    /// `until`, in movie time.
    void play(double until, double from = -0.5) {
        const long steps = std::lround(std::floor((until - from) / kFrame + 1e-4));
        for (long i = 0; i <= steps; ++i) {
            const double t = from + static_cast<double>(i) * kFrame;
            player.step(std::abs(t) < 1e-6 ? 0.0 : t);
            loop.runFor(kFrame);
        }
    }

    [[nodiscard]] bool sounds() const { return player.avAudioPlayer->isPlaying(); }

    foundation::VirtualRunLoop loop;
    double movieDuration = 8.0;
    AudioPlayer player{loop, [this] { return movieDuration; }, {}};
};

TEST_F(AudioPlayerTest, ASongIsTrimmedToTheMovieFromItsBeginning) {
    player.audioPreRoll = 2.0;
    player.audioIn = 1.0;
    player.loadSong(file("song.wav"), "Song");
    EXPECT_EQ(player.audioPreRoll, 0.0);
    EXPECT_EQ(player.audioIn, 0.0);
    EXPECT_DOUBLE_EQ(player.audioEnd, 8.0);
    EXPECT_NEAR(player.totalDuration, 12.0, 1e-6);
    player.loadSong(file("short.wav"), "Short");
    EXPECT_NEAR(player.audioEnd, 3.0, 1e-6);
    player.clearSong();
    EXPECT_FALSE(player.avAudioPlayer);
    EXPECT_FALSE(player.songTitle);
    EXPECT_EQ(player.totalDuration, 0.0);
}

TEST_F(AudioPlayerTest, AFileThatCannotBeOpenedKeepsItsNameAndTheOldSound) {
    player.loadSong(file("missing.wav"), "Missing");
    EXPECT_FALSE(player.avAudioPlayer);
    EXPECT_EQ(player.audioEnd, 0.0);
    player.loadSong(file("short.wav"), "Short");
    player.loadSong(file("missing.wav"), "Missing");
    EXPECT_EQ(player.audioURL, file("missing.wav"));
    EXPECT_EQ(player.songTitle, "Missing");
    EXPECT_NEAR(player.totalDuration, 3.0, 1e-6);
    play(0.5);
    EXPECT_TRUE(sounds());
}

TEST_F(AudioPlayerTest, PlaysTheStretchBetweenPreRollAndSongEndAndAnewInEachPass) {
    player.loadSong(file("song.wav"), "Song");
    player.audioPreRoll = 1.0;
    player.audioIn = 3.0;
    player.audioEnd = 7.0;
    for (int pass = 0; pass < 2; ++pass) {
        play(0.9);
        EXPECT_FALSE(sounds());
        play(3.0, 0.95);
        EXPECT_TRUE(sounds());
        EXPECT_NEAR(player.avAudioPlayer->currentTime(), 5.0, 2.1 * kFrame);
        play(4.9, 3.0 + kFrame);
        EXPECT_TRUE(player.isPlaying);
        EXPECT_TRUE(player.isFadingOut);
        play(5.1, 4.9 + kFrame);
        EXPECT_FALSE(player.isPlaying);
        EXPECT_FALSE(sounds());
    }
    player.isFadingOut = true;
    play(2.0);
    player.stop();
    EXPECT_FALSE(sounds());
    EXPECT_NEAR(player.avAudioPlayer->currentTime(), 4.0, 2.1 * kFrame);
}

TEST_F(AudioPlayerTest, StaysSilentWhereTheClockJumpsOverTheBeginning) {
    player.loadSong(file("song.wav"), "Song");
    player.audioPreRoll = 1.0;
    player.step(1.0 - kFrame);
    player.step(1.0 + kFrame);
    EXPECT_FALSE(player.isPlaying);
    play(3.0, 1.5);
    EXPECT_FALSE(sounds());
    player.step(1.0 - 0.9 * kFrame);
    EXPECT_FALSE(sounds()) << "the next tick is nearer";
    player.step(1.0 + 0.9 * kFrame);
    EXPECT_TRUE(sounds());
    player.stop();
    player.audioPreRoll = 0.0;
    player.step(kFrame);
    EXPECT_FALSE(sounds()) << "a whole frame late";
}

TEST_F(AudioPlayerTest, StartsOnAFrameAndFadesAndEndsOnTheirTicks) {
    player.loadSong(file("song.wav"), "Song");
    player.audioIn = 1.015625; // nearest to frame 61
    player.audioEnd = 9.015625;
    player.fadeOutDuration = 1.5;
    player.fadeOutBeginDelay = 0.5;
    player.step(0.0);
    EXPECT_NEAR(player.avAudioPlayer->currentTime(), 61.0 / 60.0, 1e-9);
    player.step(6.0 - kFrame);
    EXPECT_FALSE(player.isFadingOut);
    player.step(6.0);
    EXPECT_TRUE(player.isFadingOut);
    player.step(8.0 - kFrame);
    EXPECT_TRUE(player.isPlaying);
    player.step(8.0);
    EXPECT_FALSE(player.isPlaying);
}

TEST_F(AudioPlayerTest, VolumeFollowsTheFadeState) {
    struct Row {
        FadeState state;
        double atBegin;   // one frame after the start
        double inFadeIn;  // 0.8 s after the start
        double inFadeOut; // 1.05 s before the end
        double atEnd;
        bool isFadingOut;
    };

    // A stretch of 8 s: fade-in over 1.6 s; fade-out from 6.0 over 1.9 s.
    for (const Row& row :
         {Row{FadeState::noFade, 1.0, 1.0, 1.0, 1.0, false},
          {FadeState::fadeIn, 0.0, 0.5, 1.0, 1.0, false},
          {FadeState::fadeOut, 1.0, 1.0, 0.5, 0.0, true},
          {FadeState::fadeInOut, 0.0, 0.5, 0.5, 0.0, true}}) {
        SCOPED_TRACE(static_cast<int>(row.state));
        player.loadSong(file("song.wav"), "Song");
        player.fadeState = row.state;
        play(0.0);
        EXPECT_NEAR(player.avAudioPlayer->volume(), row.atBegin, 0.03);
        play(0.8, kFrame);
        EXPECT_NEAR(player.avAudioPlayer->volume(), row.inFadeIn, 0.03);
        play(6.95, 0.8 + kFrame);
        EXPECT_NEAR(player.avAudioPlayer->volume(), row.inFadeOut, 0.03);
        EXPECT_EQ(player.isFadingOut, row.isFadingOut);
        play(7.95, 6.95 + kFrame);
        EXPECT_NEAR(player.avAudioPlayer->volume(), row.atEnd, 0.001);
        EXPECT_TRUE(sounds());
        player.stop();
    }
}

TEST_F(AudioPlayerTest, AStartInTheMiddleIsAsLoudAsARunFromTheBeginning) {
    for (const double begin : {0.4, 1.2, 3.0, 6.5, 7.85}) {
        for (const double passed : {0.0, 0.3, 1.0}) {
            SCOPED_TRACE(testing::Message() << begin << " + " << passed);
            player.loadSong(file("song.wav"), "Song");
            player.audioPreRoll = 0.25;
            player.audioIn = 2.0;
            player.audioEnd = 10.0; // ends at 8.25 of the movie
            const double end = std::min(begin + passed, 8.2);
            play(end, -kFrame);
            const double expected = player.avAudioPlayer->volume();
            const double place = player.avAudioPlayer->currentTime();
            player.stop();
            startMidStretch(player, begin);
            play(end, begin);
            EXPECT_NEAR(player.avAudioPlayer->volume(), expected, 0.03);
            EXPECT_NEAR(player.avAudioPlayer->currentTime(), place, 2.5 * kFrame);
            player.stop();
        }
    }
    player.stop();
    startMidStretch(player, 0.2);
    startMidStretch(player, 8.25);
    EXPECT_FALSE(sounds()) << "outside of the stretch";
}

TEST_F(AudioPlayerTest, AStretchShorterThanItsFadeOutFadesFromItsFirstTick) {
    player.loadSong(file("song.wav"), "Song");
    player.fadeState = FadeState::fadeOut;
    player.audioEnd = 1.5;
    player.step(0.0);
    EXPECT_TRUE(player.isPlaying);
    EXPECT_TRUE(player.isFadingOut);
    loop.runFor(0.95);
    // As in the movie: the fade-out has begun half a second before the music.
    EXPECT_NEAR(player.avAudioPlayer->volume(), 1 - (0.5 + 0.95) / 1.9, 0.01);
}

TEST_F(AudioPlayerTest, WithoutASongAStepChangesNothingToHear) {
    play(2.0);
    EXPECT_FALSE(player.isPlaying);
    player.stop();
}

TEST_F(AudioPlayerTest, RawValuesBeyondTheListAreNoFadeState) {
    EXPECT_EQ(fadeStateOf(3), FadeState::fadeInOut);
    EXPECT_EQ(fadeStateOf(4), std::nullopt);
    EXPECT_EQ(fadeStateOf(-1), std::nullopt);
}

TEST_F(AudioPlayerTest, ABuiltInTrackIsLookedUpByTheFirstTwoPartsOfItsName) {
    media::writeBytes(file("tune.mp3"), media::Bytes{1});
    foundation::setMainBundle(foundation::Bundle({folder}));
    EXPECT_EQ((Track{"", "", "", "tune.mp3.old"}.url()), file("tune.mp3"));
    EXPECT_DEATH(std::ignore = (Track{"", "", "", "none.mp3"}.url()), "none.mp3 does not exist");
    foundation::setMainBundle(foundation::Bundle::standard());
}

} // namespace
} // namespace zelvo::audio
