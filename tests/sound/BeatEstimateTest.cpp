// SPDX-License-Identifier: MIT
#include "platform/sound/BeatEstimate.h"

#include "media/MediaFixture.h"

#include <cmath>
#include <numbers>
#include <random>

namespace zelvo::sound {
namespace {

using media::Wave;

constexpr double kNear = 0.010; // seconds

/// Short blips at each beat from `offset` on; every fourth is louder.
Wave clicks(double tempo, double offset) {
    return [=](double t) {
        const double since = t - offset;
        if (since < 0)
            return 0.0;
        const double beat = 60 / tempo;
        const double age = std::fmod(since, beat);
        const double loud = std::fmod(std::floor(since / beat), 4) == 0 ? 0.8 : 0.5;
        return loud * std::exp(-age * 60) * std::sin(2 * std::numbers::pi * 1000 * age);
    };
}

class BeatEstimateTest : public media::MediaTest {
protected:
    const std::vector<double>& beatsOf(const Wave& wave, double seconds, double from, double to) {
        media::writeWav(file("song.wav"), 44100, seconds, wave);
        return beatsOfStretch(from, to);
    }

    /// Of the song that was written last.
    const std::vector<double>& beatsOfStretch(double from, double to) {
        estimate.estimate(file("song.wav"), from, to);
        EXPECT_TRUE(loop.runUntil([this] { return !estimate.isEstimating(); }));
        return estimate.beats();
    }

    /// Each click of the stretch has one mark, and there is no other.
    void expectMarksOnClicks(double tempo, double offset, double from, double to) {
        SCOPED_TRACE(testing::Message() << tempo << " a minute from " << offset);
        const auto& beats = beatsOf(clicks(tempo, offset), 20.0, from, to);
        EXPECT_NEAR(estimate.tempo(), tempo, 0.5);
        const double wanted = (to - std::max(from, offset)) * tempo / 60;
        ASSERT_NEAR(double(beats.size()), wanted, 1.01);
        for (const double beat : beats) {
            const double since = std::remainder(beat - offset, 60 / tempo);
            EXPECT_NEAR(since, 0.0, kNear) << "at " << beat;
        }
    }

    foundation::VirtualRunLoop loop;
    int changes = 0;
    BeatEstimate estimate{loop, [this] { ++changes; }};
};

TEST_F(BeatEstimateTest, MarksEachClickOfATrack) {
    for (const double tempo : {60.0, 75.0, 90.5, 100.0, 120.0, 133.0, 150.0, 180.0})
        expectMarksOnClicks(tempo, 0.37, 0.0, 20.0);
    expectMarksOnClicks(96.0, 0.0, 0.0, 20.0);
    expectMarksOnClicks(128.0, 1.234, 5.1, 14.9); // of a stretch, in the song's time
}

TEST_F(BeatEstimateTest, FindsClicksUnderNoiseAndAChord) {
    std::mt19937 random(5);
    std::normal_distribution<double> noise(0, 0.02);
    const auto click = clicks(110.0, 0.2);
    const auto chord = [](double t) {
        return 0.08 * (std::sin(1380 * t) + std::sin(1740 * t) + std::sin(2070 * t));
    };
    const auto& beats =
        beatsOf([&](double t) { return click(t) + chord(t) + noise(random); }, 20.0, 0.0, 20.0);
    ASSERT_GE(beats.size(), 34U);
    for (const double beat : beats)
        EXPECT_NEAR(std::remainder(beat - 0.2, 60 / 110.0), 0.0, kNear) << "at " << beat;
}

TEST_F(BeatEstimateTest, InNoiseMarksStayWhenTheStretchStartsElsewhere) {
    for (const double level : {0.03, 0.1, 0.25}) {
        SCOPED_TRACE(level);
        std::mt19937 random(7);
        std::normal_distribution<double> noise(0, level);
        const auto click = clicks(120.0, 0.2);
        const auto noisy = [&](double t) {
            return std::clamp(click(t) + noise(random), -1.0, 1.0);
        };
        media::writeWav(file("song.wav"), 44100, 9.0, noisy);
        for (const double from : {0.0, 0.1, 0.23, 0.37}) {
            const auto& beats = beatsOfStretch(from, 8.0);
            EXPECT_NEAR(double(beats.size()), 15.5, 0.51) << "from " << from;
            for (const double beat : beats)
                EXPECT_NEAR(std::remainder(beat - 0.2, 0.5), 0.0, kNear) << "from " << from;
        }
    }
}

TEST_F(BeatEstimateTest, WithoutBeatsThereAreNoMarks) {
    std::mt19937 random(5);
    std::normal_distribution<double> noise(0, 0.1);
    const auto silence = [](double) { return 0.0; };
    const auto once = [](double t) { return t < 3.0 ? 0.0 : 0.5 * std::exp(3 * (3 - t)); };
    for (const Wave& wave :
         {Wave(silence),
          media::sine(440, 0.5),
          Wave([&](double) { return noise(random); }),
          Wave(once)})
        EXPECT_TRUE(beatsOf(wave, 10.0, 0.0, 10.0).empty()) << estimate.tempo();
    media::writeWav(file("song.wav"), 44100, 10.0, [&](double) { return noise(random); });
    for (const double from : {0.0, 0.4, 1.1, 2.3, 3.0, 4.0})
        EXPECT_TRUE(beatsOfStretch(from, from + 6.0).empty()) << "noise from " << from;
    EXPECT_TRUE(beatsOf(clicks(120, 0), 10.0, 5.0, 5.0).empty()) << "an empty stretch";
    estimate.estimate(file("missing.wav"), 0.0, 10.0);
    EXPECT_TRUE(loop.runUntil([this] { return !estimate.isEstimating(); }));
    EXPECT_TRUE(estimate.beats().empty());
}

TEST_F(BeatEstimateTest, KeepsItsMarksWhileTheStretchIsDraggedAndDropsThemForAnotherSong) {
    ASSERT_FALSE(beatsOf(clicks(120, 0), 10.0, 0.0, 10.0).empty());
    changes = 0;
    for (int i = 0; i < 50; ++i)
        estimate.estimate(file("song.wav"), 0.1 * i, 10.0);
    EXPECT_FALSE(estimate.beats().empty());
    EXPECT_TRUE(loop.runUntil([this] { return !estimate.isEstimating(); }));
    EXPECT_EQ(changes, 1);
    EXPECT_GT(estimate.beats().front(), 4.8);
    estimate.estimate(file("other.wav"), 0.0, 10.0);
    EXPECT_TRUE(estimate.beats().empty());
}

} // namespace
} // namespace zelvo::sound
