// SPDX-License-Identifier: MIT
#include "platform/media/AVAssetExportSession.h"

#include "media/MovieFixture.h"

#include <algorithm>
#include <array>
#include <numbers>

namespace zelvo::media {
namespace {

using Status = AVAssetExportSession::Status;

/// Root mean square of sine(f, 0.5).
constexpr double kToneLoudness = 0.5 / std::numbers::sqrt2;

TEST(CMTime, GoesToTheNearestUnitAndHalvesAwayFromZero) {
    struct Row {
        CMTime time;
        std::int64_t units;
    };

    for (const auto& [time, units] :
         {Row{{1, 2}, 1}, {{-1, 2}, -1}, {{1, 3}, 0}, {{-1, 3}, 0}, {{-2, 3}, -1}, {{90, 60}, 2}})
        EXPECT_EQ(time.converted(1).value, units) << time.value << "/" << time.timescale;
}

TEST(AVMutableAudioMix, ARampThatBeganBeforeTheMovieIsHeardFromItsMiddle) {
    AVMutableAudioMixInputParameters volume;
    volume.setVolume(0.0, {});
    volume.setVolumeRamp(0.0, 1.0, {{-60, 60}, {120, 60}});
    EXPECT_NEAR(volume.volumeAt(0.0), 0.5, 1e-9);
    EXPECT_NEAR(volume.volumeAt(0.5), 0.75, 1e-9);
    EXPECT_EQ(volume.volumeAt(3.0), 1.0);
}

class AVAssetExportSessionTest : public MovieTest {};

TEST_F(AVAssetExportSessionTest, CutsTheLastFramesAndPutsTheIndexInFront) {
    writeMovie(file("raw.mov"), 131);
    const auto exporting = session(file("raw.mov"), 128, {});
    run(*exporting);
    ASSERT_EQ(exporting->status(), Status::completed) << exporting->error().message;
    EXPECT_DOUBLE_EQ(exporting->progress(), 1.0);
    const DecodedMovie movie = decodeMovie(file("Movie.mov"), 80, 45);
    ASSERT_EQ(movie.frameTimes.size(), 128U);
    EXPECT_DOUBLE_EQ(movie.frameTimes.back(), 127.0 / 60.0);
    EXPECT_EQ(movie.videoTag, "avc1");
    EXPECT_TRUE(movie.isBt709Limited);
    EXPECT_EQ(movie.audioCodec, "");
    const auto atoms = topAtoms(file("Movie.mov"));
    EXPECT_LT(std::ranges::find(atoms, "moov"), std::ranges::find(atoms, "mdat"));
    const auto asset = AVAsset::open(file("Movie.mov"));
    EXPECT_EQ(asset->duration(), (CMTime{128, 60}));
    EXPECT_EQ(filesLeft(), (std::vector<std::string>{"Movie.mov", "raw.mov"}));
}

TEST_F(AVAssetExportSessionTest, FadesTheMusicAlongItsRampsAndCutsItWithTheMovie) {
    writeMovie(file("raw.mov"), 243);
    writeWav(file("song.wav"), 44100, 30.0, sine(1000.0, 0.5));
    Music music{file("song.wav"), 3.0, 20.0, 0.5, {}};
    music.volume.setVolume(0.0, {});
    music.volume.setVolumeRamp(0.0, 1.0, {{30, 60}, {60, 60}});
    music.volume.setVolumeRamp(1.0, 0.0, {{150, 60}, {60, 60}});
    const auto exporting = session(file("raw.mov"), 240, music);
    run(*exporting);
    ASSERT_EQ(exporting->status(), Status::completed) << exporting->error().message;
    const DecodedMovie movie = decodeMovie(file("Movie.mov"), 80, 45);
    EXPECT_EQ(movie.frameTimes.size(), 240U);
    EXPECT_EQ(movie.audioCodec, "aac");
    EXPECT_NEAR(movie.soundStart, 0.0, 1e-9);
    EXPECT_NEAR(static_cast<double>(movie.left.size()) / 48000.0, 4.0, 1024.0 / 48000.0);
    EXPECT_LT(movie.loudness(0.0, 0.48), 0.002);
    for (int tenth = 5; tenth < 40; ++tenth) {
        const double t = tenth / 10.0;
        const double middle = t + 0.05;
        double expected = std::clamp(middle - 0.5, 0.0, 1.0);
        if (middle > 2.5)
            expected = std::clamp(3.5 - middle, 0.0, 1.0);
        EXPECT_NEAR(movie.loudness(t, t + 0.1) / kToneLoudness, expected, 0.02) << t;
    }
}

TEST_F(AVAssetExportSessionTest, CutsEveryFormatToTheMillisecond) {
    writeMovie(file("raw.mov"), 63);
    // The tone starts at 12.25 s of the song.
    const Wave tone = sine(1000.0, 0.5);
    const Wave song = [&](double t) { return t < 12.25 ? 0.0 : tone(t); };

    struct Row {
        const char* name;
        const char* encoder; // null: a WAV file, written by the test
    };

    // clang-format off
    const auto rows = std::to_array<Row>({
        {"song.wav",  nullptr     },
        {"song.mp3",  "libmp3lame"},
        {"song.m4a",  "aac"       },
        {"song.flac", "flac"      },
        {"song.ogg",  "libvorbis" },
        {"song.opus", "libopus"   }
    });
    // clang-format on
    int heard = 0;
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const auto path = file(row.name);
        if (row.encoder == nullptr)
            writeWav(path, 44100, 20.0, song);
        if (row.encoder != nullptr && !encodeSound(path, row.encoder, 20.0, song))
            continue;
        run(*session(file("raw.mov"), 60, {path, 12.0, 5.0, 0.5, {}}));
        const DecodedMovie movie = decodeMovie(file("Movie.mov"), 80, 45);
        const auto loud = std::ranges::find_if(movie.left, [](double v) { return v > 0.25; });
        const double onset = static_cast<double>(loud - movie.left.begin()) / 48000.0;
        EXPECT_NEAR(onset, 0.75, 0.001);
        EXPECT_NEAR(
            movie.loudness(0.8, 0.95) / kToneLoudness, 1.0, 0.06); // lossy encoders lose a little
        ++heard;
    }
    EXPECT_GE(heard, 3);
}

TEST_F(AVAssetExportSessionTest, ASongThatEndsEarlyOrBeginsBehindTheMovieIsSilentThere) {
    writeMovie(file("raw.mov"), 123);
    writeWav(file("song.wav"), 48000, 1.0, sine(440.0, 0.5));

    struct Row {
        double in;
        double at;
        double soundsFrom;
        double soundsTo;
    };

    // Asked for 5 s of a song of 1 s.
    for (const Row& row : {Row{0.0, 0.0, 0.0, 1.0}, {0.5, 1.0, 1.0, 1.5}, {0.0, 3.0, 2.0, 2.0}}) {
        const auto exporting =
            session(file("raw.mov"), 120, {file("song.wav"), row.in, 5.0, row.at, {}});
        run(*exporting);
        const DecodedMovie movie = decodeMovie(file("Movie.mov"), 80, 45);
        for (int quarter = 0; quarter < 8; ++quarter) {
            const double t = quarter / 4.0;
            const bool isHeard = t >= row.soundsFrom && t + 0.25 <= row.soundsTo;
            EXPECT_NEAR(movie.loudness(t + 0.05, t + 0.2), isHeard ? kToneLoudness : 0.0, 0.01)
                << row.at << " at " << t;
        }
    }
}

TEST_F(AVAssetExportSessionTest, AFailureOrCancellingLeavesTheEarlierMovieUntouched) {
    writeMovie(file("raw.mov"), 60);
    writeWav(file("song.wav"), 48000, 2.0, sine(440.0, 0.5));
    const Bytes earlier{1, 2, 3};
    writeBytes(file("Movie.mov"), earlier);
    const Music music{file("song.wav"), 0.0, 1.0, 0.0, {}};

    const auto full = session(file("raw.mov"), 57, music);
    {
        const FileSizeLimit limit(3000);
        run(*full);
    }
    EXPECT_EQ(full->status(), Status::failed);
    EXPECT_EQ(full->error().cause, foundation::Cause::unwritable) << full->error().message;

    const auto spoiled = session(file("raw.mov"), 57, music);
    writeBytes(file("song.wav"), Bytes(5000, 0x55));
    run(*spoiled);
    EXPECT_EQ(spoiled->status(), Status::failed);

    const auto stopped = session(file("raw.mov"), 57, {});
    stopped->exportAsynchronously([] {});
    stopped->cancelExport();
    // The movie may be finished already, but never half written.
    const bool isEarlier = readBytes(file("Movie.mov")) == earlier;
    EXPECT_EQ(isEarlier, stopped->status() == Status::cancelled);
    EXPECT_EQ(filesLeft(), (std::vector<std::string>{"Movie.mov", "raw.mov", "song.wav"}));

    const auto nowhere = session(file("raw.mov"), 57, {});
    nowhere->outputURL = file("missing/Movie.mov");
    run(*nowhere);
    EXPECT_EQ(nowhere->error().cause, foundation::Cause::unwritable);
}

} // namespace
} // namespace zelvo::media
