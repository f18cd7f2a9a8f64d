// SPDX-License-Identifier: MIT
// The sound of a finished movie, measured.
#include "audio/AudioPlayer.h"
#include "export/MovieMux.h"
#include "export/MovieWriterFixture.h"

#include <gmock/gmock.h>

namespace zelvo::movie {
namespace {

class MovieMusicTest : public test::MovieWriterTest {
protected:
    MovieMusicTest() {
        length = 6;
        media::writeWav(folder.path() / "song.wav", 48'000, 9, media::sine(440, 0.5));
        song = MusicStretch{
            .file = folder.path() / "song.wav",
            .audioPreRoll = 1,
            .audioIn = 2,
            .audioEnd = 6,
            .fadeInDuration = 1,
            .fadeOutDuration = 1,
            .fadeOutBeginDelay = 0.1};
    }

    [[nodiscard]] media::DecodedMovie made() {
        exportMovie();
        EXPECT_TRUE(*outcome);
        return media::decodeMovie(writer.movieURL(), 32, 18);
    }

    /// The loudness of a sine with amplitude 0.5.
    static constexpr double kFull = 0.353553;
};

TEST_F(MovieMusicTest, SoundsInItsStretch) {
    const auto movie = made();
    EXPECT_EQ(movie.audioCodec, "aac");
    EXPECT_LT(movie.loudness(0.1, 0.9), 0.01) << "the pre-roll";
    EXPECT_NEAR(movie.loudness(1.1, 4.9), kFull, 0.02);
    EXPECT_LT(movie.loudness(5.1, 5.8), 0.01) << "after the stretch";
}

TEST_F(MovieMusicTest, SoundsFromItsStartIfTheStretchIsLongerThanTheSong) {
    media::writeWav(song->file, 48'000, 1.5, media::sine(440, 0.5));
    song->audioIn = -0.5;
    song->audioEnd = 1.5;
    const auto movie = made();
    EXPECT_NEAR(movie.loudness(1.05, 2.45), kFull, 0.02);
    EXPECT_LT(movie.loudness(2.6, 5.8), 0.01);
}

TEST_F(MovieMusicTest, FadesInAndOut) {
    song->fadesIn = song->fadesOut = true;
    const auto movie = made();
    // Fade-in from 1 to 2; fade-out from 3.9 to 4.9.
    EXPECT_NEAR(movie.loudness(1.2, 1.3), 0.25 * kFull, 0.03);
    EXPECT_NEAR(movie.loudness(1.7, 1.8), 0.75 * kFull, 0.03);
    EXPECT_NEAR(movie.loudness(2.2, 3.8), kFull, 0.02);
    EXPECT_NEAR(movie.loudness(4.35, 4.45), 0.5 * kFull, 0.03);
    EXPECT_LT(movie.loudness(4.92, 5.0), 0.02) << "silence shortly before the stretch ends";
}

TEST_F(MovieMusicTest, DropsTheFadeInWhereTheFadesWouldOverlap) {
    song->fadesIn = song->fadesOut = true;
    song->fadeInDuration = song->fadeOutDuration = 2; // the stretch has 4, and a delay of 0.1
    const auto movie = made();
    EXPECT_NEAR(movie.loudness(1.1, 2.8), kFull, 0.02) << "loud at once";
    EXPECT_NEAR(movie.loudness(3.85, 3.95), 0.5 * kFull, 0.03) << "out from 2.9 to 4.9";
}

/// A sound device that reads 80 ms ahead and plays 20 ms late, as real ones do. What it drops when it
/// is stopped is not heard.
class DeviceAhead final : public media::AudioOutput {
public:
    explicit DeviceAhead(std::vector<float>& target)
        : heard(target) {}

    void start(Source newSource) override {
        source = std::move(newSource);
        pull(kAhead);
    }

    void stop() override {
        if (source)
            heard.resize(heard.size() - kAhead - kLate);
        source = nullptr;
    }

    void finish() override { source = nullptr; }

    void pull(std::size_t frames) {
        if (!source)
            return;
        std::vector<float> both(2 * frames);
        source(both);
        for (std::size_t i = 0; i < both.size(); i += 2)
            heard.push_back(both[i]);
    }

private:
    static constexpr std::size_t kAhead = 3840;
    static constexpr std::size_t kLate = 960;

    std::vector<float>& heard;
    Source source;
};

class PreviewTest : public MovieMusicTest {
protected:
    /// What is heard of a live run, from the movie's beginning.
    std::vector<double> heardLive(audio::FadeState fades) {
        std::vector<float> heard;
        DeviceAhead* device = nullptr;
        audio::AudioPlayer player(
            loop,
            [this] { return length; },
            [&] {
                auto made = std::make_unique<DeviceAhead>(heard);
                device = made.get();
                return made;
            });
        player.loadSong(song->file, "Song");
        player.audioPreRoll = song->audioPreRoll;
        player.audioIn = song->audioIn;
        player.audioEnd = song->audioEnd;
        player.fadeInDuration = song->fadeInDuration;
        player.fadeOutDuration = song->fadeOutDuration;
        player.fadeOutBeginDelay = song->fadeOutBeginDelay;
        player.fadeState = fades;
        for (int frame = 0; frame < 60 * length; ++frame) {
            player.step(FrameClock::secondsOf(frame));
            loop.runFor(FrameClock::kStep);
            device->pull(800);
        }
        std::vector<double> all(static_cast<std::size_t>(song->audioPreRoll * 48000));
        all.insert(all.end(), heard.begin(), heard.end());
        all.resize(static_cast<std::size_t>(length * 48000));
        return all;
    }
};

TEST_F(PreviewTest, IsAsLoudAsTheMovieAtAnyTime) {
    media::writeWav(
        song->file, 48'000, 9, [](double t) { return t > 0.5 ? media::sine(440, 0.5)(t) : 0; });
    using enum audio::FadeState;
    for (const auto fades : {fadeIn, fadeOut, fadeInOut}) {
        for (const double duration : {1.0, 5.0}) { // apart; overlapping and longer than the stretch
            SCOPED_TRACE(testing::Message() << static_cast<int>(fades) << ", " << duration << " s");
            song->fadesIn = audio::hasFadeIn(fades);
            song->fadesOut = audio::hasFadeOut(fades);
            song->fadeInDuration = song->fadeOutDuration = duration;
            const auto movie = made();
            media::DecodedMovie live;
            live.left = heardLive(fades);
            for (int i = 0; i < 115; ++i) {
                const double from = 0.05 * i;
                EXPECT_NEAR(
                    live.loudness(from, from + 0.05), movie.loudness(from, from + 0.05), 0.01)
                    << "at " << from;
            }
        }
    }
}

TEST_F(PreviewTest, BeginsAndEndsOnTheSample) {
    media::writeWav(song->file, 48'000, 9, [](double) { return 0.5; });
    song->audioEnd = 5.5;
    const auto live = heardLive(audio::FadeState::noFade);
    const auto isHeard = [](double value) { return value != 0.0; };
    const auto first = std::ranges::find_if(live, isHeard) - live.begin();
    const auto last = std::find_if(live.rbegin(), live.rend(), isHeard) - live.rbegin();
    EXPECT_EQ(first, 48000);
    EXPECT_EQ(std::ssize(live) - last, 48000 * 45 / 10);
}

TEST_F(MovieMusicTest, StaysSilentWithoutAUsableSong) {
    const auto noise = folder.path() / "noise.mp3";
    std::ofstream(noise) << std::string(3000, 'x');
    const auto unknown = folder.path() / "unknown.wav"; // has a track in an unknown coding
    std::filesystem::copy_file(song->file, unknown);
    std::fstream(unknown, std::ios::in | std::ios::out | std::ios::binary).seekp(20) << "??";
    for (const auto& file : {noise, unknown}) {
        song->file = file;
        const auto silent = made();
        EXPECT_EQ(silent.audioCodec, "");
        EXPECT_EQ(silent.frameTimes.size(), 358U);
        EXPECT_THAT((*outcome)->musicFailure, testing::HasSubstr(file.string()));
        EXPECT_THAT(
            alerts,
            testing::Contains(testing::Pair("The movie is silent", (*outcome)->musicFailure)));
    }
    song->file = folder.path() / "song.wav";
    song->audioPreRoll = 20; // outside the movie
    EXPECT_LT(made().loudness(0, 5.9), 0.01);
}

TEST_F(MovieMusicTest, SaysThatTheSongIsDamagedInItsMiddle) {
    struct Row {
        const char* name;
        const char* encoder;
        bool keepsTime;       ///< its packets have times
        double damage = 0.06; ///< share of the file; 0: a single byte
    };

    constexpr Row kRows[] = {
        {"song.m4a", "aac", true},
        {"song.mp3", "libmp3lame", false},
        {"song.flac", "flac", false},
        {"song.ogg", "libvorbis", true},
        {"page.ogg", "libvorbis", true, 0}};
    const auto wave = [](double t) { // a pause from 4.5 to 5.5
        return t > 4.5 && t < 5.5 ? 0.0 : media::sine(440, 0.5)(t);
    };
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.name);
        song->file = folder.path() / row.name;
        if (!media::encodeSound(song->file, row.encoder, 9, wave))
            continue;
        (void)made();
        EXPECT_EQ((*outcome)->musicDamage, "");
        auto bytes = media::readBytes(song->file);
        const auto at = [&](double share) {
            return bytes.begin() + static_cast<std::ptrdiff_t>(share * double(bytes.size()));
        };
        std::fill(at(0.45), at(0.45 + row.damage) + 1, std::uint8_t{0xD5});
        media::writeBytes(song->file, bytes);
        const auto movie = made();
        EXPECT_THAT((*outcome)->musicDamage, testing::HasSubstr(song->file.string()));
        EXPECT_THAT(
            alerts,
            testing::Contains(testing::Pair("The song is damaged", (*outcome)->musicDamage)));
        if (!row.keepsTime)
            continue;
        EXPECT_LT(movie.loudness(3.6, 4.4), 0.02) << "the pause";
        EXPECT_NEAR(movie.loudness(4.6, 4.9), kFull, 0.03);
    }
}

} // namespace
} // namespace zelvo::movie
