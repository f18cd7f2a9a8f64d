// SPDX-License-Identifier: MIT
#include "platform/media/VideoReader.h"

#include "media/MediaFixture.h"
#include "media/VideoFixture.h"
#include "platform/media/AVPlayer.h"

#include <algorithm>
#include <numeric>
#include <random>

namespace zelvo::media {
namespace {

using Pixel = std::array<int, 4>;

Pixel pixelAt(const image::Image& picture, double x, double y) {
    const auto column = static_cast<int>(x * picture.width);
    const auto row = static_cast<int>(y * picture.height);
    const auto place = static_cast<std::size_t>(row * picture.width + column) * 4;
    const auto* const bytes = &picture.pixels[place];
    return {bytes[0], bytes[1], bytes[2], bytes[3]};
}

void expectNear(const Pixel& got, const Pixel& wanted, int tolerance) {
    for (std::size_t i = 0; i < got.size(); ++i)
        EXPECT_NEAR(got.at(i), wanted.at(i), tolerance) << "channel " << i;
}

class VideoReaderTest : public MediaTest {
protected:
    [[nodiscard]] VideoReader made(const std::string& name, const VideoToMake& video) const {
        makeVideo(file(name), video);
        auto reader = VideoReader::open(file(name));
        EXPECT_TRUE(reader) << reader.error().message;
        return std::move(*reader);
    }
};

/// Uneven times: long and short pictures, as of a filmed screen.
std::int64_t uneven(int frame) {
    return 20LL * frame + (frame % 3 == 1 ? 9 : 0) + (frame > 10 ? 300 : 0);
}

TEST_F(VideoReaderTest, ShowsTheRightPictureAtAnyTimeOfAnyFile) {
    struct Row {
        const char* name;
        VideoToMake video;
        int first = 0; ///< the number of the first picture that is shown
    };

    const auto later = [](int frame) { return 20LL * frame + 900; };
    const auto cut = [](int frame) { return 20LL * (frame - 5); };
    const std::vector<Row> rows{
        {"plain.mp4", {}},
        {"late.ts", {.timeOf = later}},
        {"milliseconds.mkv", {}},
        {"uneven.mp4", {.timeOf = uneven}},
        {"uneven.mkv", {.timeOf = uneven}},
        {"editlist.mov", {.timeOf = cut}, 5},
        {"old.avi", {.encoder = "mpeg4", .ticksPerSecond = 30, .timeOf = [](int n) { return n; }}},
        {"intra.mov", {.encoder = "prores_ks", .pixelFormat = "yuv422p10le"}},
        {"vp9.webm", {.encoder = "libvpx-vp9", .bFrames = 0}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        VideoReader reader = made(row.name, row.video);
        const int count = row.video.frames - row.first;
        ASSERT_EQ(reader.count(), static_cast<std::size_t>(count));
        std::vector<int> order(static_cast<std::size_t>(count));
        std::iota(order.begin(), order.end(), 0);
        std::vector<int> mixed = order;
        std::shuffle(mixed.begin(), mixed.end(), std::mt19937(1));
        order.insert(order.end(), mixed.begin(), mixed.end());
        const auto seconds = [&](int shown) {
            const auto ticks = row.video.timeOf(shown + row.first) - row.video.timeOf(row.first);
            return static_cast<double>(ticks) / row.video.ticksPerSecond;
        };
        for (const int shown : order) {
            const auto number = [&](double time) {
                return numberIn(*reader.picture(reader.indexAt(time))) - row.first;
            };
            ASSERT_EQ(number(seconds(shown)), shown);
            if (shown > 0) {
                ASSERT_EQ(number(seconds(shown) - 0.005), shown - 1) << "just before it";
            }
        }
        EXPECT_EQ(reader.indexAt(-1), 0U);
        EXPECT_EQ(reader.indexAt(1e9), static_cast<std::size_t>(count - 1));
        EXPECT_NEAR(reader.format().duration, seconds(count - 1) + 1.0 / 30, 0.03);
    }
}

TEST_F(VideoReaderTest, ConvertsEachMatrixAndRangeToTheSameColour) {
    const Pixel wanted{200, 60, 40, 255};
    const auto draw = [&wanted](image::Image& picture, int) {
        for (std::size_t i = 0; i < picture.pixels.size(); ++i)
            picture.pixels[i] = static_cast<std::uint8_t>(wanted.at(i % 4));
    };
    for (const char* matrix : {"bt709", "smpte170m", "bt2020nc"}) {
        for (const auto& [format, isFull] :
             {std::pair{"yuv420p", false}, {"yuv420p", true}, {"yuv444p", false}}) {
            SCOPED_TRACE(std::string(matrix) + ", " + format + (isFull ? ", full" : ", limited"));
            VideoReader reader = made(
                "colour.mp4",
                {.pixelFormat = format,
                 .frames = 3,
                 .matrix = matrix,
                 .hasFullRange = isFull,
                 .draw = draw});
            for (const std::size_t index : {0, 1, 2})
                expectNear(pixelAt(*reader.picture(index), 0.5, 0.5), wanted, 4);
        }
    }
}

/// The light of a display, worked out by hand: dark and middle tones keep their light, 203 cd/m² and
/// more come near full white, and red of the wide primaries is cut off.
TEST_F(VideoReaderTest, ShowsHDRWithTheLightThatItsFileTells) {
    struct Row {
        const char* transfer;
        Pixel code; ///< of 255
        Pixel wanted;
    };

    for (const Row& row :
         {Row{"smpte2084", {0, 0, 0, 255}, {0, 0, 0, 255}},
          {"smpte2084", {112, 112, 112, 255}, {136, 136, 136, 255}}, // 50 cd/m²
          {"smpte2084", {192, 192, 192, 255}, {255, 255, 255, 255}}, // 1000 cd/m²
          {"smpte2084", {112, 0, 0, 255}, {170, 0, 0, 255}},
          {"arib-std-b67", {96, 96, 96, 255}, {100, 100, 100, 255}}, // 26 cd/m²
          {"arib-std-b67", {255, 255, 255, 255}, {255, 255, 255, 255}}}) {
        SCOPED_TRACE(row.transfer + std::to_string(row.code[0]));
        const auto draw = [&row](image::Image& picture, int) {
            for (std::size_t i = 0; i < picture.pixels.size(); ++i)
                picture.pixels[i] = static_cast<std::uint8_t>(row.code.at(i % 4));
        };
        VideoReader reader = made(
            "hdr.mkv",
            {.encoder = "ffv1",
             .pixelFormat = "yuv444p10le",
             .width = 40, // no whole blocks of the scaler
             .frames = 1,
             .matrix = "bt2020nc",
             .transfer = row.transfer,
             .draw = draw});
        expectNear(pixelAt(*reader.picture(0), 0.9, 0.9), row.wanted, 5);
    }
}

TEST_F(VideoReaderTest, ShowsOneMomentOfAnInterlacedFrame) {
    const auto draw = [](image::Image& picture, int) {
        for (std::size_t i = 0; i < picture.pixels.size(); ++i) {
            const std::size_t row = i / 4 / static_cast<std::size_t>(picture.width);
            picture.pixels[i] = i % 4 == 3 || row % 2 == 0 ? 255 : 0; // the second moment is black
        }
    };
    VideoReader reader = made(
        "interlaced.mov",
        {.encoder = "prores_ks",
         .pixelFormat = "yuv422p10le",
         .frames = 1,
         .isInterlaced = true,
         .draw = draw});
    const image::ImagePtr picture = reader.picture(0);
    for (const double y : {0.0, 0.3, 0.31, 0.99})
        expectNear(pixelAt(*picture, 0.5, y), {255, 255, 255, 255}, 4);
}

TEST_F(VideoReaderTest, KeepsTransparency) {
    const auto draw = [](image::Image& picture, int number) {
        drawNumber(picture, number);
        for (std::size_t i = picture.pixels.size() / 2; i < picture.pixels.size(); i += 4)
            picture.pixels[i + 3] = i * 4 < picture.pixels.size() * 3 ? 128 : 0;
    };
    for (const auto& [name, encoder, format] :
         {std::tuple{"alpha.webm", "libvpx-vp9", "yuva420p"},
          {"alpha.mov", "prores_ks", "yuva444p10le"},
          {"animation.mov", "qtrle", "argb"}}) {
        SCOPED_TRACE(name);
        VideoReader reader = made(
            name,
            {.encoder = encoder, .pixelFormat = format, .frames = 3, .bFrames = 0, .draw = draw});
        EXPECT_TRUE(reader.format().hasAlpha);
        const image::ImagePtr picture = reader.picture(2);
        EXPECT_EQ(numberIn(*picture), 2);
        for (const auto& [y, alpha] : {std::pair{0.25, 255}, {0.62, 128}, {0.9, 0}})
            EXPECT_NEAR(pixelAt(*picture, 0.5, y)[3], alpha, 3) << y;
    }
}

TEST_F(VideoReaderTest, ShowsPicturesUprightWithSquarePixels) {
    // Number 1: only the rightmost bar of the upper half is white.
    struct Row {
        VideoToMake video;
        int width;
        int height;
        double x; ///< where the white bar is
        double y;
    };

    const auto draw = [](image::Image& picture, int) { drawNumber(picture, 1); };
    for (const Row& row :
         {Row{{.frames = 1, .draw = draw}, 160, 96, 0.95, 0.1},
          {{.frames = 1, .quarterTurns = 1, .draw = draw}, 96, 160, 0.9, 0.95},
          {{.frames = 1, .quarterTurns = 2, .draw = draw}, 160, 96, 0.05, 0.9},
          {{.frames = 1, .quarterTurns = 3, .draw = draw}, 96, 160, 0.1, 0.05},
          {{.frames = 1, .pixelAspect = 1.5, .draw = draw}, 240, 96, 0.95, 0.1},
          {{.frames = 1, .pixelAspect = 0.5, .quarterTurns = 1, .draw = draw},
           192,
           160,
           0.9,
           0.95}}) {
        SCOPED_TRACE(row.video.quarterTurns);
        VideoReader reader = made("turned.mp4", row.video);
        EXPECT_EQ(reader.format().width, row.width);
        EXPECT_EQ(reader.format().height, row.height);
        const image::ImagePtr picture = reader.picture(0);
        expectNear(pixelAt(*picture, row.x, row.y), {255, 255, 255, 255}, 6);
        expectNear(pixelAt(*picture, 1 - row.x, 1 - row.y), {128, 128, 128, 255}, 6);
    }
}

TEST_F(VideoReaderTest, ShowsAllColumnsOfPicturesOfAnyWidth) {
    constexpr int kStep = 12; // of grey, from column to column
    const auto draw = [](image::Image& picture, int) {
        for (std::size_t i = 0; i < picture.pixels.size(); ++i) {
            const std::size_t column = i / 4 % static_cast<std::size_t>(picture.width);
            picture.pixels[i] = i % 4 == 3 ? 255 : static_cast<std::uint8_t>(kStep * column);
        }
    };
    // Even ones, because the encoder leaves half a column of colour open.
    for (const int width : {2, 14, 16, 18}) {
        SCOPED_TRACE(width);
        VideoReader reader = made(
            "grey.mkv",
            {.encoder = "ffv1", .width = width, .height = 32, .frames = 1, .draw = draw});
        const image::ImagePtr picture = reader.picture(0);
        ASSERT_EQ(picture->width, width);
        for (std::size_t i = 0; i < picture->pixels.size(); i += 4) {
            const int column = static_cast<int>(i) / 4 % width;
            ASSERT_NEAR(picture->pixels[i], kStep * column, 3) << "column " << column;
        }
    }
}

TEST_F(VideoReaderTest, RefusesWhatIsNoVideo) {
    writeWav(file("sound.wav"), 8000, 0.5, sine(440, 0.5));
    writeBytes(file("words.mp4"), Bytes(2000, 'a'));
    writeBytes(file("empty.mp4"), {});
    for (const auto& [name, part] :
         {std::pair{"sound.wav", "holds no video"},
          {"words.mp4", "is not a sound or movie file"},
          {"empty.mp4", "is empty"},
          {"missing.mp4", "does not exist"}}) {
        EXPECT_FALSE(isVideoFile(file(name)));
        const auto reader = VideoReader::open(file(name));
        ASSERT_FALSE(reader) << name;
        EXPECT_NE(reader.error().message.find(part), std::string::npos) << reader.error().message;
    }
}

TEST_F(VideoReaderTest, ReadsWhatIsLeftOfADamagedFile) {
    makeVideo(file("whole.mkv"), {});
    const Bytes whole = readBytes(file("whole.mkv"));
    std::mt19937 random(7);
    int readable = 0;
    for (int round = 0; round < 40; ++round) {
        Bytes damaged = whole;
        if (round < 8)
            damaged.resize(whole.size() * static_cast<std::size_t>(round + 1) / 9);
        else
            for (int i = 0; i < 40; ++i)
                damaged[600 + random() % (damaged.size() - 600)] =
                    static_cast<std::uint8_t>(random());
        writeBytes(file("damaged.mkv"), damaged);
        auto reader = VideoReader::open(file("damaged.mkv"));
        if (!reader)
            continue;
        ++readable;
        for (const double share : {1.0, 0.5, 0.0})
            ASSERT_NE(reader->picture(reader->indexAt(reader->format().duration * share)), nullptr);
    }
    EXPECT_GE(readable, 30);
}

TEST_F(VideoReaderTest, PlaysAheadAndWaitsOnlyWhereAsked) {
    using Patience = AVPlayer::Patience;
    makeVideo(file("clip.mp4"), {});
    const auto player = *AVPlayer::open(file("clip.mp4"));
    for (const int frame : {0, 1, 2, 3, 7, 23, 5, 6, 0, 12}) {
        player->seek(frame / 30.0);
        EXPECT_EQ(numberIn(*player->picture(Patience::waits)), frame);
    }
    player->seek(CMTime{});
    EXPECT_EQ(numberIn(*player->picture(Patience::takesNearest)), 0) << "the first is always there";
    // Asked for one after the other without rest, it shows older ones, but goes on and arrives.
    int last = 0;
    for (int round = 0; last != 23; ++round) {
        player->seek(std::min(round, 23) / 30.0);
        const int number = numberIn(*player->picture(Patience::takesNearest));
        ASSERT_GE(number, last);
        ASSERT_LE(number, std::min(round, 23));
        last = number;
    }
}

} // namespace
} // namespace zelvo::media
