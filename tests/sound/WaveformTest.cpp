// SPDX-License-Identifier: MIT
#include "platform/sound/Waveform.h"

#include "media/MediaFixture.h"
#include "support/PeakMemory.h"

#include <gmock/gmock.h>

#include <QCoreApplication>

#include <chrono>
#include <cmath>

namespace zelvo::sound {
namespace {

using media::sine;
using media::writeWav;

/// A 16-bit WAV file with two different sides. It is as long as told; behind the samples it is silent
/// and takes no room on the disk.
void writeSides(
    const std::filesystem::path& file, std::uint32_t rate, double seconds, std::int16_t left) {
    const auto frames = static_cast<std::uint32_t>(seconds * rate);
    media::Bytes bytes;
    const auto put = [&](std::string_view text) {
        bytes.insert(bytes.end(), text.begin(), text.end());
    };
    const auto number = [&](std::uint32_t value, int count) {
        for (; count > 0; --count, value >>= 8U)
            bytes.push_back(static_cast<std::uint8_t>(value));
    };
    put("RIFF");
    number(36 + frames * 4, 4);
    put("WAVEfmt ");
    for (const auto& [value, count] :
         {std::pair{16U, 4}, {1U, 2}, {2U, 2}, {rate, 4}, {rate * 4, 4}, {4U, 2}, {16U, 2}})
        number(value, count);
    put("data");
    number(frames * 4, 4);
    for (std::uint32_t i = 0; i < rate; ++i) {
        number(static_cast<std::uint16_t>(i % 2 == 0 ? left : -left), 2);
        number(32767, 2);
    }
    media::writeBytes(file, bytes);
    std::filesystem::resize_file(file, 44 + std::uintmax_t{frames} * 4);
}

class WaveformTest : public media::MediaTest {
protected:
    [[nodiscard]] std::vector<float> valuesOf(const std::string& name) {
        waveform.load(file(name));
        EXPECT_TRUE(loop.runUntil([this] { return !waveform.isLoading(); }));
        return waveform.values();
    }

    foundation::VirtualRunLoop loop;
    int changes = 0;
    Waveform waveform{loop, [this] { ++changes; }};
};

TEST_F(WaveformTest, HasTheMeansOfWholeRunsOfSamplesAtTheSongsOwnRate) {
    // Steps of a quarter, with both signs; the last run of samples is not whole.
    const auto steps = [](double t) {
        const double sample = std::round(t * 22050);
        return (std::floor(sample / 6000) + 1) / 4 * (std::fmod(sample, 2) == 0 ? 1 : -1);
    };
    writeWav(file("steps.wav"), 22050, (4 * 6000 + 5999) / 22050.0, [&](double t) {
        return std::min(steps(t), 0.99);
    });
    const auto values = valuesOf("steps.wav");
    ASSERT_EQ(values.size(), 4U);
    EXPECT_DOUBLE_EQ(waveform.valuesASecond(), 22050.0 / 6000);
    for (std::size_t i = 0; i < 3; ++i)
        EXPECT_NEAR(values[i], 0.25 * double(i + 1), 0.001) << i;
    EXPECT_NEAR(values[3], 0.995, 0.002);
}

TEST_F(WaveformTest, ListensToTheFirstChannelOnly) {
    writeSides(file("sides.wav"), 24000, 1.0, 8192);
    EXPECT_THAT(valuesOf("sides.wav"), ::testing::Each(::testing::FloatNear(0.25F, 0.001F)));
    EXPECT_EQ(waveform.values().size(), 4U);
}

TEST_F(WaveformTest, FillsFromTheLeftInPieces) {
    writeWav(file("long.wav"), 8000, 300.0, sine(440, 0.5));
    waveform.load(file("long.wav"));
    EXPECT_TRUE(waveform.values().empty());
    std::vector<std::size_t> counts;
    while (waveform.isLoading()) {
        const int before = changes;
        ASSERT_TRUE(loop.runUntil([&] { return changes > before; }));
        counts.push_back(waveform.values().size());
    }
    EXPECT_LE(counts.front(), 16U);
    EXPECT_GE(counts.size(), 5U);
    EXPECT_EQ(counts.back(), 400U);
    EXPECT_TRUE(std::ranges::is_sorted(counts));
}

TEST_F(WaveformTest, ASongThatIsCutOffWhileItIsLoadedKeepsTheValuesThatItHad) {
    writeWav(file("cut.wav"), 8000, 300.0, sine(440, 0.5));
    waveform.load(file("cut.wav"));
    ASSERT_TRUE(loop.runUntil([this] { return !waveform.values().empty(); }));
    std::filesystem::resize_file(file("cut.wav"), 100 * 8000 * 2);
    ASSERT_TRUE(loop.runUntil([this] { return !waveform.isLoading(); }));
    EXPECT_FALSE(waveform.error());
    EXPECT_NEAR(double(waveform.values().size()), 100 * 8000 / 6000.0, 2.0);
}

TEST_F(WaveformTest, SaysWhyASongHasNoValuesAndForgetsItWithTheNextSong) {
    media::writeBytes(file("noise.mp3"), media::Bytes(5000, 0x5A));
    EXPECT_TRUE(valuesOf("noise.mp3").empty());
    ASSERT_TRUE(waveform.error());
    EXPECT_NE(waveform.error()->message.find("noise.mp3"), std::string::npos);
    EXPECT_EQ(changes, 1);
    writeWav(file("good.wav"), 8000, 10.0, sine(440, 0.5));
    EXPECT_FALSE(valuesOf("good.wav").empty());
    EXPECT_FALSE(waveform.error());
}

TEST_F(WaveformTest, TwelveHoursTakeTheMemoryOfAFewValues) {
    writeSides(file("day.wav"), 1000, 12 * 3600.0, 8192);
    const long before = test::peakKilobytes();
    EXPECT_EQ(valuesOf("day.wav").size(), 12U * 3600 * 1000 / 6000);
    EXPECT_LT(test::peakKilobytes() - before, 8 << 10);
}

/// On the wall clock, where songs are decoded on a thread.
class WallWaveformTest : public media::MediaTest {
protected:
    int argc = 1;
    std::string name = "test";
    std::vector<char*> argv{name.data()};
    QCoreApplication application{argc, argv.data()}; // the wall-clock run loop needs its event loop
    foundation::WallRunLoop wall;
};

TEST_F(WallWaveformTest, TheLastOfManyQuickSongsIsTheOnlyOneShown) {
    writeWav(file("loud.wav"), 8000, 120.0, [](double) { return 0.9; });
    writeWav(file("soft.wav"), 8000, 120.0, [](double) { return 0.1; });
    bool isSoft = false;
    int mixed = 0;
    Waveform waveform(wall, [&] {
        for (const float value : waveform.values())
            mixed += (value < 0.5F) != isSoft ? 1 : 0;
    });
    for (int round = 0; round < 30; ++round) {
        isSoft = round % 2 != 0;
        // Meanwhile the next piece of the former song is decoded, and waits to be taken.
        std::this_thread::sleep_for(std::chrono::milliseconds(round % 3 * 5));
        waveform.load(file(isSoft ? "soft.wav" : "loud.wav"));
        EXPECT_TRUE(waveform.values().empty());
        const auto some = static_cast<std::size_t>(round % 4) * 20;
        wall.runUntil([&] { return waveform.values().size() >= some; });
    }
    ASSERT_TRUE(isSoft);
    wall.runUntil([&] { return !waveform.isLoading(); });
    EXPECT_EQ(waveform.values().size(), 160U);
    EXPECT_EQ(mixed, 0);
}

} // namespace
} // namespace zelvo::sound
