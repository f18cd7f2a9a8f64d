// SPDX-License-Identifier: MIT
#include "platform/media/AVAssetWriter.h"

#include "media/MovieFixture.h"
#include "platform/media/AVAsset.h"
#include "platform/media/ColorConversion.h"

#include <sys/resource.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <csignal>
#include <numbers>
#include <random>

namespace zelvo::media {
namespace {

using Status = AVAssetWriter::Status;

/// Files may grow to so many bytes only, while this lives; as on a full disk, writing fails beyond.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes) {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &before);
        const rlimit small{bytes, before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &small);
    }

    ~FileSizeLimit() { setrlimit(RLIMIT_FSIZE, &before); }

    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    rlimit before{};
};

/// Root mean square of sine(f, 0.5).
constexpr double kToneLoudness = 0.5 / std::numbers::sqrt2;

class AVAssetWriterTest : public MovieTest {};

class AVAssetExportSessionTest : public MovieTest {};

TEST_F(AVAssetWriterTest, KeepsEveryFrameAtItsExactTimeAndTagsTheMovie) {
    writeMovie(file("raw.mov"), 61);
    const DecodedMovie movie = decodeMovie(file("raw.mov"), 80, 45);
    ASSERT_EQ(movie.frameTimes.size(), 61U);
    for (std::size_t i = 0; i < movie.frameTimes.size(); ++i) {
        EXPECT_DOUBLE_EQ(movie.frameTimes[i], static_cast<double>(i) / 60.0);
    }
    EXPECT_EQ(movie.videoTag, "avc1");
    EXPECT_TRUE(movie.isBt709Limited);

    const auto asset = AVAsset::open(file("raw.mov"));
    ASSERT_TRUE(asset);
    const auto tracks = asset->tracksWithMediaType(MediaType::video);
    ASSERT_EQ(tracks.size(), 1U);
    EXPECT_EQ(asset->duration(), (CMTime{61, 60}));
    EXPECT_DOUBLE_EQ(tracks[0].nominalFrameRate, 60.0);
    EXPECT_EQ(tracks[0].naturalTimeScale, 600);
}

TEST_F(AVAssetWriterTest, ShowsTheSquareWhereItWasDrawnWhateverThePicturesSizeAndDirection) {
    struct Row {
        const char* name;
        int width;
        int height;
        bool isBottomUp;
    };

    constexpr auto kRows = std::to_array<Row>({
        {"same size",         160, 90,  false},
        {"one and a half",    240, 135, false},
        {"bottom-up",         160, 90,  true },
        {"bottom-up, larger", 240, 134, true },
    });
    // BT.709 (0, 255, 0): Y 173, Cb 42, Cr 26; (0, 0, 128): Y 24, Cb 184, Cr 123.
    const auto expectColour = [](const std::array<std::uint8_t, 3>& found, int y, int cb, int cr) {
        EXPECT_NEAR(found[0], y, 2);
        EXPECT_NEAR(found[1], cb, 2);
        EXPECT_NEAR(found[2], cr, 2);
    };
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.name);
        Writing writing = start(file("square.mov"), kSmall);
        PixelBuffer drawn = picture(row.width, row.height);
        // A mark in the upper left corner tells top from bottom.
        for (int y = 0; y < row.height / 4; ++y) {
            std::fill_n(drawn.row(y), row.width, std::uint8_t{255});
        }
        if (row.isBottomUp) {
            PixelBuffer flipped = PixelBuffer::allocate(row.width, row.height, PixelFormat::bgra);
            for (int y = 0; y < row.height; ++y) {
                std::copy_n(drawn.row(y), 4L * row.width, flipped.row(row.height - 1 - y));
            }
            std::uint8_t* top = flipped.row(row.height - 1);
            const PixelBuffer::Layout layout{
                row.width, row.height, -flipped.bytesPerRow(), PixelFormat::bgra};
            auto kept = std::make_shared<PixelBuffer>(std::move(flipped));
            drawn = PixelBuffer::view(top, layout, [kept] {});
        }
        ASSERT_TRUE(writing.adaptor->appendPixelBuffer(std::move(drawn), {}));
        finish(writing);
        expectColour(decodeMovie(file("square.mov"), 80, 44).centres.at(0), 173, 42, 26);
        expectColour(decodeMovie(file("square.mov"), 80, 82).centres.at(0), 24, 184, 123);
        expectColour(decodeMovie(file("square.mov"), 8, 8).centres.at(0), 235, 128, 128);
    }
}

TEST(ColorConversionTest, IsWithinOneOfTheStandardsFormulaInBothByteOrders) {
    std::mt19937 random(7);
    constexpr int kWidth = 38;
    constexpr int kHeight = 6;
    for (const auto format : {PixelFormat::bgra, PixelFormat::rgba}) {
        PixelBuffer source = PixelBuffer::allocate(kWidth, kHeight, format);
        for (int y = 0; y < kHeight; ++y) {
            std::generate_n(
                source.row(y), 4 * kWidth, [&] { return static_cast<std::uint8_t>(random()); });
        }
        std::array<std::uint8_t, kWidth * kHeight> luma{};
        std::array<std::uint8_t, kWidth * kHeight / 4> cb{};
        std::array<std::uint8_t, kWidth * kHeight / 4> cr{};
        convertToYuv420(source, {luma.data(), cb.data(), cr.data(), kWidth, kWidth / 2});

        const auto ycc = [&](int x, int y) {
            const std::uint8_t* p = source.row(y) + 4L * std::max(x, 0);
            const bool isBgra = format == PixelFormat::bgra;
            const double r = p[isBgra ? 2 : 0];
            const double b = p[isBgra ? 0 : 2];
            const double light = 0.2126 * r + 0.7152 * p[1] + 0.0722 * b;
            return std::array{light, (b - light) / 1.8556, (r - light) / 1.5748};
        };
        for (int y = 0; y < kHeight; ++y) {
            for (int x = 0; x < kWidth; ++x) {
                const double expected = 16.0 + 219.0 * ycc(x, y)[0] / 255.0;
                EXPECT_NEAR(luma[static_cast<std::size_t>(y * kWidth + x)], expected, 1.0);
                if (x % 2 == 1 || y % 2 == 1)
                    continue;
                const auto mean = [&](std::size_t channel) {
                    double sum = 0.0;
                    for (const int row : {y, y + 1}) {
                        sum += ycc(x - 1, row)[channel] + 2.0 * ycc(x, row)[channel] +
                               ycc(x + 1, row)[channel];
                    }
                    return 128.0 + 224.0 * sum / 8.0 / 255.0;
                };
                const auto at = static_cast<std::size_t>(y / 2 * kWidth / 2 + x / 2);
                EXPECT_NEAR(cb[at], mean(1), 1.0);
                EXPECT_NEAR(cr[at], mean(2), 1.0);
            }
        }
    }
}

TEST_F(AVAssetWriterTest, GivesTheSameBytesForTheSameFrames) {
    writeMovie(file("a.mov"), 20);
    writeMovie(file("b.mov"), 20);
    EXPECT_EQ(readBytes(file("a.mov")), readBytes(file("b.mov")));
}

TEST_F(AVAssetWriterTest, WritesHevcWithTheTagThatPlayersTakeWhenForced) {
    Writing writing = start(file("raw.mov"), {VideoCodec::hevc, 160, 90});
    for (int i = 0; i < 5; ++i)
        ASSERT_TRUE(append(writing, i));
    finish(writing);
    const DecodedMovie movie = decodeMovie(file("raw.mov"), 80, 45);
    EXPECT_EQ(movie.videoTag, "hvc1");
    EXPECT_EQ(movie.frameTimes.size(), 5U);
}

TEST_F(AVAssetWriterTest, HoldsTheProducerBackInsteadOfLosingFramesOrReorderingThem) {
    Writing writing = start(file("raw.mov"), {VideoCodec::h264, 1280, 720});
    // Pictures are dropped by the encoder's thread; no more than the queue and the one in work are
    // ever alive.
    std::atomic<int> alive = 0;
    int most = 0;
    PixelBuffer shared = picture(1280, 720);
    for (int i = 0; i < 40; ++i) {
        writing.input->waitUntilReady();
        most = std::max(most, ++alive);
        const PixelBuffer::Layout layout{1280, 720, shared.bytesPerRow(), PixelFormat::bgra};
        auto frame = PixelBuffer::view(shared.row(0), layout, [&] { --alive; });
        ASSERT_TRUE(writing.adaptor->appendPixelBuffer(std::move(frame), {i, 60}));
    }
    finish(writing);
    EXPECT_LE(most, 5);
    EXPECT_EQ(alive, 0);
    EXPECT_EQ(decodeMovie(file("raw.mov"), 80, 45).frameTimes.size(), 40U);
    EXPECT_GT(writing.writer->encodingSeconds(), 0.0);
}

TEST_F(AVAssetWriterTest, LeavesNothingWhenCancelledOrDropped) {
    Writing cancelled = start(file("cancelled.mov"), kSmall);
    ASSERT_TRUE(append(cancelled, 0));
    cancelled.writer->cancelWriting();
    EXPECT_EQ(cancelled.writer->status(), Status::cancelled);
    EXPECT_EQ(append(cancelled, 1).error().cause, foundation::Cause::cancelled);
    bool isCalled = false;
    cancelled.writer->finishWritingWithCompletionHandler([&] { isCalled = true; });
    EXPECT_TRUE(isCalled);
    {
        Writing dropped = start(file("dropped.mov"), kSmall);
        ASSERT_TRUE(append(dropped, 0));
    }
    EXPECT_TRUE(filesLeft().empty());

    writeMovie(file("done.mov"), 3);
    Writing done = start(file("late.mov"), kSmall);
    ASSERT_TRUE(append(done, 0));
    finish(done);
    done.writer->cancelWriting();
    EXPECT_EQ(done.writer->status(), Status::completed);
    EXPECT_EQ(filesLeft(), (std::vector<std::string>{"done.mov", "late.mov"}));
}

TEST_F(AVAssetWriterTest, SaysWhyAFileCannotBeMade) {
    struct Row {
        std::string path;
        const char* why;
    };

    const Row rows[] = {
        {file("missing/raw.mov").string(), "folder does not exist"},
        {folder.string(),                  "folder of that name"  },
    };
    for (const Row& row : rows) {
        const auto made = AVAssetWriter::create(row.path);
        ASSERT_FALSE(made) << row.path;
        EXPECT_EQ(made.error().cause, foundation::Cause::unwritable);
        EXPECT_NE(made.error().message.find(row.why), std::string::npos) << made.error().message;
    }
}

TEST_F(AVAssetWriterTest, ReportsAFullDiskAtOnceOrWhenItFillsUp) {
    std::filesystem::create_symlink("/dev/full", file("full.mov"));
    auto full = AVAssetWriter::create(file("full.mov"));
    ASSERT_TRUE(full);
    (*full)->addInput(std::make_unique<AVAssetWriterInput>(kSmall));
    const auto started = (*full)->startWriting();
    ASSERT_FALSE(started);
    EXPECT_NE(started.error().message.find("disk is full"), std::string::npos);
    EXPECT_EQ((*full)->status(), Status::failed);

    const FileSizeLimit limit(2000);
    Writing writing = start(file("filling.mov"), kSmall);
    for (int i = 0; i < 200; ++i)
        std::ignore = append(writing, i);
    finish(writing);
    EXPECT_EQ(writing.writer->status(), Status::failed);
    EXPECT_EQ(append(writing, 200).error().cause, foundation::Cause::unwritable);
    EXPECT_EQ(filesLeft(), (std::vector<std::string>{"full.mov"}));
}

TEST_F(AVAssetWriterTest, FailsWithoutFrames) {
    Writing writing = start(file("empty.mov"), kSmall);
    finish(writing);
    EXPECT_EQ(writing.writer->status(), Status::failed);
    EXPECT_TRUE(filesLeft().empty());
}

TEST_F(AVAssetExportSessionTest, CutsTheLastFramesAndPutsTheIndexInFront) {
    writeMovie(file("raw.mov"), 131);
    const auto exporting = session(file("raw.mov"), 128, {});
    run(*exporting);
    ASSERT_EQ(exporting->status(), AVAssetExportSession::Status::completed)
        << exporting->error().message;
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
    music.volume.setVolumeRamp(
        0.0,
        1.0,
        {
            {30, 60},
            {60, 60}
    });
    music.volume.setVolumeRamp(
        1.0,
        0.0,
        {
            {150, 60},
            {60,  60}
    });
    const auto exporting = session(file("raw.mov"), 240, music);
    run(*exporting);
    ASSERT_EQ(exporting->status(), AVAssetExportSession::Status::completed)
        << exporting->error().message;
    const DecodedMovie movie = decodeMovie(file("Movie.mov"), 80, 45);
    EXPECT_EQ(movie.frameTimes.size(), 240U);
    EXPECT_EQ(movie.audioCodec, "aac");
    EXPECT_NEAR(movie.soundStart, 0.0, 1e-9);
    EXPECT_NEAR(static_cast<double>(movie.left.size()) / 48000.0, 4.0, 1024.0 / 48000.0);
    EXPECT_LT(movie.loudness(0.0, 0.48), 0.002);
    for (double t = 0.5; t < 4.0; t += 0.1) {
        const double middle = t + 0.05;
        double expected = std::clamp(middle - 0.5, 0.0, 1.0);
        if (middle > 2.5)
            expected = std::clamp(3.5 - middle, 0.0, 1.0);
        EXPECT_NEAR(movie.loudness(t, t + 0.1) / kToneLoudness, expected, 0.02) << t;
    }
}

TEST_F(AVAssetExportSessionTest, CutsEveryFormatToTheMillisecond) {
    writeMovie(file("raw.mov"), 63);
    // The tone sets in at 12.25 s of the song.
    const Wave tone = sine(1000.0, 0.5);
    const Wave song = [&](double t) { return t < 12.25 ? 0.0 : tone(t); };

    struct Row {
        const char* name;
        const char* encoder; // null: WAV by hand
    };

    const Row rows[] = {
        {"song.wav",  nullptr     },
        {"song.mp3",  "libmp3lame"},
        {"song.m4a",  "aac"       },
        {"song.flac", "flac"      },
        {"song.ogg",  "libvorbis" },
        {"song.opus", "libopus"   }
    };
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
            movie.loudness(0.8, 0.95) / kToneLoudness, 1.0, 0.06); // lossy encoders take some
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
    const Row rows[] = {
        {0.0, 0.0, 0.0, 1.0},
        {0.5, 1.0, 1.0, 1.5},
        {0.0, 3.0, 2.0, 2.0}
    };
    for (const Row& row : rows) {
        const auto exporting =
            session(file("raw.mov"), 120, {file("song.wav"), row.in, 5.0, row.at, {}});
        run(*exporting);
        const DecodedMovie movie = decodeMovie(file("Movie.mov"), 80, 45);
        for (double t = 0.0; t < 2.0; t += 0.25) {
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
    EXPECT_EQ(full->status(), AVAssetExportSession::Status::failed);
    EXPECT_EQ(full->error().cause, foundation::Cause::unwritable) << full->error().message;

    const auto spoiled = session(file("raw.mov"), 57, music);
    writeBytes(file("song.wav"), Bytes(5000, 0x55));
    run(*spoiled);
    EXPECT_EQ(spoiled->status(), AVAssetExportSession::Status::failed);

    const auto stopped = session(file("raw.mov"), 57, {});
    stopped->exportAsynchronously([] {});
    stopped->cancelExport();
    if (stopped->status() == AVAssetExportSession::Status::cancelled) {
        EXPECT_EQ(readBytes(file("Movie.mov")), earlier);
    }
    EXPECT_EQ(filesLeft(), (std::vector<std::string>{"Movie.mov", "raw.mov", "song.wav"}));

    const auto nowhere = session(file("raw.mov"), 57, {});
    nowhere->outputURL = file("missing/Movie.mov");
    run(*nowhere);
    EXPECT_EQ(nowhere->error().cause, foundation::Cause::unwritable);
}

} // namespace
} // namespace zelvo::media
