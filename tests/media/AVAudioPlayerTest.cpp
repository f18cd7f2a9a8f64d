// SPDX-License-Identifier: MIT
#include "platform/media/AVAudioPlayer.h"

#include "media/MediaFixture.h"
#include "platform/media/AVAsset.h"
#include "platform/media/AudioReader.h"
#include "support/PeakMemory.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <random>

namespace zelvo::media {
namespace {

/// Replaces the sound device; the test takes the samples itself.
class TestOutput final : public AudioOutput {
public:
    explicit TestOutput(Source& place)
        : source(place) {}

    void start(Source newSource) override { source = std::move(newSource); }

    void stop() override { source = nullptr; }

private:
    Source& source;
};

class AVAudioPlayerTest : public MediaTest {
protected:
    /// A song of 4 s whose value rises from 0 to 0.8, so that a sample shows its song time.
    [[nodiscard]] std::unique_ptr<AVAudioPlayer> openRamp() {
        writeWav(file("ramp.wav"), 48000, 4.0, [](double t) { return 0.2 * t; });
        auto opened =
            AVAudioPlayer::open(file("ramp.wav"), loop, std::make_unique<TestOutput>(source));
        EXPECT_TRUE(opened) << opened.error().message;
        return std::move(*opened);
    }

    /// Takes this many seconds from the player; returns the left channel.
    [[nodiscard]] std::vector<float> take(double seconds) const {
        std::vector<float> both(static_cast<std::size_t>(std::lround(seconds * 48000.0)) * 2);
        source(both);
        std::vector<float> left;
        for (std::size_t i = 0; i < both.size(); i += 2)
            left.push_back(both[i]);
        return left;
    }

    foundation::VirtualRunLoop loop;
    AudioOutput::Source source;
};

TEST_F(AVAudioPlayerTest, TellsThatItsFileWasCutOffWhileItPlayed) {
    const auto player = openRamp();
    player->setCurrentTime(1);
    player->play();
    EXPECT_GT(take(0.5).back(), 0.2);
    EXPECT_FALSE(player->hasBrokenOff());
    std::filesystem::resize_file(file("ramp.wav"), 100'000);
    EXPECT_EQ(take(2.5).back(), 0);
    EXPECT_TRUE(player->hasBrokenOff());
    player->pause();
    player->setCurrentTime(0);
    EXPECT_FALSE(player->hasBrokenOff());
    const auto whole = openRamp();
    whole->play();
    EXPECT_EQ(take(5).back(), 0);
    EXPECT_FALSE(whole->hasBrokenOff()) << "it has come to its end";
}

TEST_F(AVAudioPlayerTest, FollowsTheClockFromPlayToPauseToTheSongsEnd) {
    const auto player = openRamp();
    EXPECT_NEAR(player->duration(), 4.0, 1e-6);
    loop.runFor(1.0);
    EXPECT_FALSE(player->isPlaying());
    player->setCurrentTime(1.5);
    player->play();
    loop.runFor(2.0);
    EXPECT_TRUE(player->isPlaying());
    EXPECT_NEAR(player->currentTime(), 3.5, 1e-9);
    player->pause();
    loop.runFor(5.0);
    EXPECT_NEAR(player->currentTime(), 3.5, 1e-9);
    player->play();
    loop.runFor(0.6);
    EXPECT_FALSE(player->isPlaying());
    EXPECT_EQ(player->currentTime(), 0.0);
    player->play();
    EXPECT_TRUE(player->isPlaying());

    player->setNumberOfLoops(1);
    player->setCurrentTime(0.0);
    loop.runFor(6.0);
    EXPECT_NEAR(player->currentTime(), 2.0, 1e-9);
    EXPECT_TRUE(player->isPlaying());
    loop.runFor(2.1);
    EXPECT_FALSE(player->isPlaying());
}

TEST_F(AVAudioPlayerTest, VolumeTravelsAndANewFadeTakesOverWhereTheOldOneStands) {
    const auto player = openRamp();
    player->setVolume(0.0F);
    player->setVolume(1.0F, 2.0);
    loop.runFor(1.0);
    EXPECT_NEAR(player->volume(), 0.5F, 1e-6);
    player->setVolume(0.0F, 0.5);
    loop.runFor(0.25);
    EXPECT_NEAR(player->volume(), 0.25F, 1e-6);
    loop.runFor(1.0);
    EXPECT_EQ(player->volume(), 0.0F);
}

TEST_F(AVAudioPlayerTest, TheDeviceGetsTheSongFromThePositionWithTheFadeOnIt) {
    const auto player = openRamp();
    player->setCurrentTime(2.0);
    player->setVolume(0.0F);
    player->play();
    player->setVolume(1.0F, 1.0);
    const auto faded = take(2.5);
    for (const double t : {0.25, 0.5, 0.75, 1.25, 1.9}) {
        const double expected = 0.2 * (2.0 + t) * std::min(t, 1.0);
        EXPECT_NEAR(faded[static_cast<std::size_t>(t * 48000.0)], expected, 0.002) << t;
    }
    EXPECT_EQ(faded.back(), 0.0F); // after the song's end
    player->pause();
    EXPECT_FALSE(source);

    player->setNumberOfLoops(-1);
    player->setCurrentTime(3.9);
    player->play();
    EXPECT_NEAR(take(5.0)[48000 * 3], 0.2 * 2.9, 0.002);
}

TEST_F(AVAudioPlayerTest, ASongThatGoesAwayOrIsCutOffWhileItPlaysEndsInSilence) {
    const auto player = openRamp();
    player->play();
    EXPECT_NEAR(take(1.0).back(), 0.2, 0.001);
    std::filesystem::resize_file(file("ramp.wav"), 44 + 2 * 48000 * 2);
    const auto rest = take(4.0);
    EXPECT_NEAR(rest[48000 / 2], 0.3, 0.001);
    EXPECT_EQ(rest.back(), 0.0F);
    player->pause();
    std::filesystem::remove(file("ramp.wav"));
    player->setCurrentTime(1.0); // it is still open
    player->play();
    EXPECT_NEAR(take(0.5).back(), 0.3, 0.001);
    EXPECT_EQ(take(4.0).back(), 0.0F);
    EXPECT_FALSE(AVAudioPlayer::open(file("ramp.wav"), loop, nullptr));
}

/// The file gives an error with a message, or a sound that can be read to its end.
void expectHarmless(const std::filesystem::path& file) {
    if (const auto asset = AVAsset::open(file); !asset) {
        EXPECT_NE(asset.error().message.find(file.filename().string()), std::string::npos);
    }
    auto reader = AudioReader::open(file);
    if (!reader) {
        EXPECT_FALSE(reader.error().message.empty());
        return;
    }
    std::vector<float> block(96000);
    reader->seek(reader->duration() * 0.75);
    for (int i = 0; i < 20 && reader->read(block) > 0; ++i) {
        EXPECT_TRUE(std::ranges::all_of(block, [](float v) { return std::abs(v) <= 1.0F; }));
    }
}

TEST_F(AVAudioPlayerTest, MusicThatIsNotMusicIsAnError) {
    std::mt19937 random(3);
    Bytes noise(20000);
    std::ranges::generate(noise, [&] { return static_cast<std::uint8_t>(random()); });
    writeBytes(file("noise.mp3"), noise);
    writeBytes(file("empty.wav"), {});
    const std::string list = "#EXTM3U\n" + file("ramp.wav").string() + "\n";
    writeBytes(file("list.mp3"), Bytes(list.begin(), list.end()));
    std::filesystem::create_directory(file("folder.mp3"));
    writeWav(file("slow.wav"), 1, 2000.0, sine(0.1, 0.5));
    writeWav(file("low.wav"), 999, 1.0, sine(100.0, 0.5));
    using foundation::Cause;

    using Row = std::pair<const char*, Cause>;

    for (const auto& [name, cause] :
         {Row{"noise.mp3", Cause::malformed},
          {"empty.wav", Cause::malformed},
          {"list.mp3", Cause::malformed},
          {"folder.mp3", Cause::unreadable},
          {"missing.mp3", Cause::notFound},
          {"slow.wav", Cause::unsupported},
          {"low.wav", Cause::unsupported}}) {
        const auto opened = AVAudioPlayer::open(file(name), loop, nullptr);
        ASSERT_FALSE(opened) << name;
        EXPECT_EQ(opened.error().cause, cause) << name << ": " << opened.error().message;
        EXPECT_NE(opened.error().message.find(name), std::string::npos);
    }
}

TEST_F(AVAudioPlayerTest, AHoleOfGigabytesInASongTakesNoMemory) {
    if (!encodeSound(file("song.mp3"), "libmp3lame", 2.0, sine(440.0, 0.5)))
        GTEST_SKIP() << "no MP3 encoder";
    std::filesystem::resize_file(file("song.mp3"), 3LL << 30U);

    const long before = test::peakKilobytes();
    const auto reader = AudioReader::open(file("song.mp3"));
    ASSERT_TRUE(reader) << reader.error().message;
    EXPECT_NEAR(reader->duration(), 2.0, 0.1);
    EXPECT_LT(test::peakKilobytes() - before, 400L << 10U);
}

TEST_F(AVAudioPlayerTest, BehindAHoleASongKeepsItsTimeFromWhereverItIsPlayed) {
    const auto wave = [](double t) { return sine(440.0, t < 3.0 ? 0.25 : 0.5)(t); };
    if (!encodeSound(file("song.m4a"), "aac", 4.0, wave))
        GTEST_SKIP() << "no AAC encoder";
    Bytes bytes = readBytes(file("song.m4a"));
    const auto at = [&](double share) {
        return bytes.begin() + static_cast<std::ptrdiff_t>(share * double(bytes.size()));
    };
    std::fill(at(0.4), at(0.6), std::uint8_t{0xD5});
    writeBytes(file("song.m4a"), bytes);
    auto reader = AudioReader::open(file("song.m4a"));
    ASSERT_TRUE(reader) << reader.error().message;
    for (int step = 10; step < 28; ++step) { // before the hole, in it, and behind it
        const double start = 0.1 * step;
        reader->seek(start);
        std::vector<float> samples(std::size_t{4} * 48000 * 2);
        samples.resize(reader->read(samples) * 2);
        const auto loud =
            std::ranges::find_if(samples, [](float value) { return std::abs(value) > 0.4F; });
        const auto frames = static_cast<double>(loud - samples.begin()) / 2;
        EXPECT_NEAR(start + frames / 48000, 3.0, 0.05) << "from " << start;
    }
}

TEST_F(AVAudioPlayerTest, DamagedMusicPlaysAsFarAsItGoes) {
    writeWav(file("whole.wav"), 44100, 2.0, sine(440.0, 0.5));
    Bytes half = readBytes(file("whole.wav"));
    half.resize(half.size() / 2);
    writeBytes(file("half.wav"), half);
    const auto truncated = AudioReader::open(file("half.wav"));
    ASSERT_TRUE(truncated);
    EXPECT_NEAR(truncated->duration(), 1.0, 0.01);

    std::vector<std::string> names{"whole.wav"};
    // clang-format off
    constexpr auto kEncoded = std::to_array<std::pair<const char*, const char*>>({
        {"song.mp3",  "libmp3lame"},
        {"song.m4a",  "aac"       },
        {"song.flac", "flac"      },
        {"song.ogg",  "libvorbis" }
    });
    // clang-format on
    for (const auto& [name, encoder] : kEncoded) {
        if (encodeSound(file(name), encoder, 2.0, sine(440.0, 0.5)))
            names.emplace_back(name);
    }
    constexpr unsigned kSeed = 20;
    std::mt19937 random(kSeed);
    for (const std::string& name : names) {
        const Bytes whole = readBytes(file(name));
        for (int round = 0; round < 25; ++round) {
            SCOPED_TRACE(testing::Message() << name << ", round " << round << ", seed " << kSeed);
            Bytes damaged = whole;
            if (round % 3 == 0)
                damaged.resize(1 + random() % damaged.size());
            // Damage at the start of a file has the most effect.
            const std::size_t reach =
                round % 2 == 0 ? std::min<std::size_t>(400, damaged.size()) : damaged.size();
            for (int i = 0; i < 1 + round; ++i) {
                damaged[random() % reach] = static_cast<std::uint8_t>(random());
            }
            writeBytes(file("damaged-" + name), damaged);
            expectHarmless(file("damaged-" + name));
        }
    }
}

} // namespace
} // namespace zelvo::media
