// SPDX-License-Identifier: MIT
#include "platform/media/AVAssetWriter.h"

#include "media/MovieFixture.h"
#include "platform/media/AVAsset.h"

#include <algorithm>
#include <array>
#include <set>
#include <tuple>

namespace zelvo::media {
namespace {

using Status = AVAssetWriter::Status;

class AVAssetWriterTest : public MovieTest {};

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

/// Makes the upper left corner white, to see which side is up.
PixelBuffer withCorner(PixelBuffer picture) {
    for (int y = 0; y < picture.height() / 4; ++y)
        std::fill_n(picture.row(y), picture.width(), std::uint8_t{255});
    return picture;
}

void expectColour(const std::array<std::uint8_t, 3>& found, int luma, int cb, int cr) {
    EXPECT_NEAR(found[0], luma, 2);
    EXPECT_NEAR(found[1], cb, 2);
    EXPECT_NEAR(found[2], cr, 2);
}

TEST_F(AVAssetWriterTest, ShowsTheSquareWhereItWasDrawn) {
    Writing writing = start(file("square.mov"), kSmall);
    ASSERT_TRUE(writing.adaptor->appendPixelBuffer(withCorner(picture(160, 90)), {}));
    finish(writing);
    // Green (0, 255, 0), blue (0, 0, 128) and white in BT.709.
    expectColour(decodeMovie(file("square.mov"), 80, 44).centres.at(0), 173, 42, 26);
    expectColour(decodeMovie(file("square.mov"), 80, 82).centres.at(0), 24, 184, 123);
    expectColour(decodeMovie(file("square.mov"), 8, 8).centres.at(0), 235, 128, 128);
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
    // The encoder's thread gives the memory of a picture back. So there are never more than the
    // pictures in the queue and the one that is encoded.
    std::set<const std::uint8_t*> places;
    for (int i = 0; i < 40; ++i) {
        writing.input->waitUntilReady();
        PixelBuffer frame = writing.adaptor->pixelBufferPool().acquire();
        std::fill_n(frame.row(0), frame.bytesPerRow() * frame.height(), std::uint8_t{90});
        places.insert(frame.row(0));
        ASSERT_TRUE(writing.adaptor->appendPixelBuffer(std::move(frame), {i, 60}));
    }
    finish(writing);
    EXPECT_LE(places.size(), 5U);
    EXPECT_EQ(decodeMovie(file("raw.mov"), 80, 45).frameTimes.size(), 40U);
    EXPECT_GT(writing.writer->encodingSeconds(), 0.0);
}

TEST_F(AVAssetWriterTest, LeavesNothingWhenCancelledDroppedOrEmpty) {
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
    Writing empty = start(file("empty.mov"), kSmall);
    finish(empty);
    EXPECT_EQ(empty.writer->status(), Status::failed) << "a movie has frames";
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
    using Row = std::pair<std::filesystem::path, const char*>;

    for (const auto& [path, why] :
         {Row{file("missing/raw.mov"), "folder does not exist"}, {folder, "folder of that name"}}) {
        const auto made = AVAssetWriter::create(path);
        ASSERT_FALSE(made) << path;
        EXPECT_EQ(made.error().cause, foundation::Cause::unwritable);
        EXPECT_NE(made.error().message.find(why), std::string::npos) << made.error().message;
    }
}

TEST_F(AVAssetWriterTest, ReportsAFullDiskAtOnceOrWhenItFillsUp) {
    {
        const FileSizeLimit nothing(0);
        auto full = AVAssetWriter::create(file("full.mov"));
        ASSERT_TRUE(full);
        (*full)->addInput(std::make_unique<AVAssetWriterInput>(kSmall));
        const auto started = (*full)->startWriting();
        ASSERT_FALSE(started);
        EXPECT_NE(started.error().message.find("full.mov"), std::string::npos);
        EXPECT_EQ((*full)->status(), Status::failed);
    }
    const FileSizeLimit limit(2000);
    Writing writing = start(file("filling.mov"), kSmall);
    for (int i = 0; i < 200; ++i)
        std::ignore = append(writing, i);
    finish(writing);
    EXPECT_EQ(writing.writer->status(), Status::failed);
    EXPECT_EQ(append(writing, 200).error().cause, foundation::Cause::unwritable);
    EXPECT_TRUE(filesLeft().empty());
}

} // namespace
} // namespace zelvo::media
