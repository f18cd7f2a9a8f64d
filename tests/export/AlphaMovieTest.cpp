// SPDX-License-Identifier: MIT
// Movies with alpha, and other kinds of files, read back by the program's own reader.
#include "export/MovieWriterFixture.h"
#include "platform/media/Container.h"
#include "platform/media/VideoReader.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace zelvo::movie {
namespace {

using foundation::Cause;
using testing::ElementsAre;

constexpr int kWidth = 128;
constexpr int kHeight = 72;

/// An orange disc with a soft edge. Where nothing is, the colour is black, as the renderer leaves
/// it.
std::vector<std::uint8_t> disc() {
    std::vector<std::uint8_t> pixels;
    for (int y = 0; y < kHeight; ++y) {
        for (int x = 0; x < kWidth; ++x) {
            const double edge = 24.5 - std::hypot(x - 63.3, y - 36.7);
            const auto alpha = static_cast<std::uint8_t>(std::clamp(edge, 0.0, 1.0) * 255);
            const std::array<std::uint8_t, 4> pixel{255, 170, 40, alpha};
            pixels.insert(pixels.end(), pixel.begin(), pixel.end());
            if (alpha == 0)
                std::fill(pixels.end() - 4, pixels.end(), 0);
        }
    }
    return pixels;
}

/// What a pixel shows in front of this grey.
double shownOn(double grey, const std::uint8_t* pixel, int channel) {
    const double alpha = pixel[3] / 255.0;
    return pixel[channel] * alpha + grey * (1 - alpha);
}

struct Difference {
    double largest = 0;   ///< levels of 255
    double darkening = 0; ///< the most by which a channel is darker
};

/// Both pictures in front of white or of a checkerboard.
Difference differenceOn(
    const std::vector<std::uint8_t>& wanted, const std::vector<std::uint8_t>& got, bool checkered) {
    Difference found;
    for (int i = 0; i < kWidth * kHeight; ++i) {
        const bool isDark = checkered && ((i % kWidth / 8 + i / kWidth / 8) % 2 == 1);
        for (int channel = 0; channel < 3; ++channel) {
            const double grey = isDark ? 102 : 255;
            const double change = shownOn(grey, &got[4 * static_cast<std::size_t>(i)], channel) -
                                  shownOn(grey, &wanted[4 * static_cast<std::size_t>(i)], channel);
            found.largest = std::max(found.largest, std::abs(change));
            found.darkening = std::max(found.darkening, -change);
        }
    }
    return found;
}

class AlphaMovieTest : public test::MovieWriterTest {
protected:
    AlphaMovieTest() {
        length = 0.5;
        writer.options.renderSize = {kWidth, kHeight};
    }
};

TEST_F(AlphaMovieTest, ShowsTheSameInFrontOfAnything) {
    rendering.picture = disc();
    writer.options.leftOut = 1;
    for (const auto& [name, tolerance] : {std::pair{"a.mov", 4.0}, {"a.webm", 6.0}}) {
        SCOPED_TRACE(name);
        writer.options.output = folder.path() / name;
        exportMovie();
        ASSERT_TRUE(*outcome) << outcome->error().message;
        auto reader = media::VideoReader::open(*writer.options.output);
        ASSERT_TRUE(reader) << reader.error().message;
        EXPECT_TRUE(reader->format().hasAlpha);
        EXPECT_EQ(reader->count(), 28U) << "three of 31 are cut";
        EXPECT_NEAR(reader->format().duration, 28 / 60.0, 0.002);
        const auto picture = reader->picture(20);
        for (const bool checkered : {false, true}) {
            const auto found = differenceOn(rendering.picture, picture->pixels, checkered);
            EXPECT_LT(found.largest, tolerance);
            EXPECT_LT(found.darkening, 4) << "no dark fringe";
        }
        const auto alphaAt = [&picture](int x, int y) {
            return picture->pixels[4 * static_cast<std::size_t>(y * kWidth + x) + 3];
        };
        EXPECT_EQ(alphaAt(63, 36), 255);
        EXPECT_EQ(alphaAt(10, 10), 0);
    }
}

TEST_F(AlphaMovieTest, IsOfTheKindThatItsNameSays) {
    media::writeWav(folder.path() / "song.wav", 48'000, 3, media::sine(440, 0.5));
    song = MusicStretch{.file = folder.path() / "song.wav", .audioEnd = 3};
    length = 2;

    struct Row {
        const char* name;
        const char* videoTag; ///< WebM has none
        const char* audioCodec;
        double precision; ///< of times, in seconds
    };

    for (const Row& row :
         {Row{"a.mov", "avc1", "aac", 1e-9},
          {"a.MP4", "avc1", "aac", 1e-9},
          {"a.webm", "", "opus", 0.0006}}) {
        SCOPED_TRACE(row.name);
        writer.options.output = folder.path() / row.name;
        writer.options.codec = media::VideoCodec::h264;
        if (media::containerOf(row.name) == media::Container::webm)
            writer.options.codec.reset();
        exportMovie();
        ASSERT_TRUE(*outcome) << outcome->error().message;
        const auto made = media::decodeMovie(*writer.options.output, 32, 18);
        ASSERT_EQ(made.frameTimes.size(), 118U);
        for (std::size_t n = 0; n < made.frameTimes.size(); ++n)
            EXPECT_NEAR(made.frameTimes[n], static_cast<double>(n) / 60, row.precision);
        EXPECT_NEAR(made.centres[50][0], 16 + test::FakeFrames::greyOf(50 / 60.0) * 219.0 / 255, 3);
        EXPECT_EQ(made.audioCodec, row.audioCodec);
        EXPECT_NEAR(made.loudness(0.1, 1.9), 0.3535, 0.02);
        if (*row.videoTag != '\0') {
            EXPECT_EQ(made.videoTag, row.videoTag);
        }
        const auto sound = media::AVAsset::open(*writer.options.output)
                               ->tracksWithMediaType(media::MediaType::audio);
        EXPECT_NEAR(sound.at(0).duration.seconds(), 118 / 60.0, 0.03) << "it ends with the movie";
    }
}

TEST_F(AlphaMovieTest, RefusesWhatTheFileCannotHold) {
    writer.options.leftOut = 1;
    writer.options.output = folder.path() / "a.mp4";
    EXPECT_EQ(writer.start().error().cause, Cause::unsupported) << "MP4 has no alpha";
    writer.options.output = folder.path() / "a.mov";
    writer.options.codec = media::VideoCodec::h264;
    EXPECT_EQ(writer.start().error().cause, Cause::unsupported) << "H.264 has no alpha";
    EXPECT_THAT(filesIn(folder.path()), ElementsAre("documents"));
}

TEST_F(AlphaMovieTest, KeepsOneMovieAndItsCopiesInAChosenPlace) {
    exportMovie();
    ASSERT_TRUE(*outcome);
    writer.options.container = media::Container::webm;
    writer.options.copyPlace = {folder.path() / "chosen/deeper", "Night Run"};
    exportMovie();
    exportMovie();
    ASSERT_TRUE(*outcome);
    EXPECT_EQ(writer.movieURL(), folders.documents / "Folder/Movie.webm");
    EXPECT_THAT(filesIn(folders.documents / "Folder"), ElementsAre("Movie.webm"));
    EXPECT_THAT(
        filesIn(folder.path() / "chosen/deeper"),
        ElementsAre("Night Run 2.webm", "Night Run.webm"));
    EXPECT_EQ(writer.freeVideoPlace(), folder.path() / "chosen/deeper/Night Run 3.webm");
}

} // namespace
} // namespace zelvo::movie
