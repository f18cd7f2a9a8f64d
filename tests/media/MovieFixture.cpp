// SPDX-License-Identifier: MIT
#include "media/MovieFixture.h"

#include <future>

namespace zelvo::media {

PixelBuffer MovieTest::picture(int width, int height) {
    PixelBuffer made = PixelBufferPool(width, height, PixelFormat::bgra).acquire();
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const bool isInside =
                std::abs(x - width / 2) < width / 8 && std::abs(y - height / 2) < width / 8;
            std::uint8_t* pixel = made.row(y) + 4L * x;
            pixel[0] = isInside ? 0 : 128;
            pixel[1] = isInside ? 255 : 0;
            pixel[2] = 0;
            pixel[3] = 255;
        }
    }
    return made;
}

MovieTest::Writing
MovieTest::start(const std::filesystem::path& file, const VideoSettings& settings) {
    auto made = AVAssetWriter::create(file);
    if (!made) {
        ADD_FAILURE() << made.error().message;
        return {};
    }
    Writing writing{std::move(*made), nullptr, nullptr};
    writing.input = &writing.writer->addInput(std::make_unique<AVAssetWriterInput>(settings));
    writing.adaptor = std::make_unique<AVAssetWriterInputPixelBufferAdaptor>(
        *writing.input, PixelBufferPool(settings.width, settings.height, PixelFormat::bgra));
    const auto started = writing.writer->startWriting();
    EXPECT_TRUE(started) << started.error().message;
    writing.writer->startSessionAtSourceTime({});
    return writing;
}

foundation::Result<void> MovieTest::append(Writing& writing, int frame) {
    writing.input->waitUntilReady();
    return writing.adaptor->appendPixelBuffer(picture(160, 90), {frame, 60});
}

void MovieTest::finish(Writing& writing) {
    std::promise<void> done;
    writing.writer->finishWritingWithCompletionHandler([&] { done.set_value(); });
    done.get_future().wait();
}

void MovieTest::writeMovie(const std::filesystem::path& file, int frames) {
    Writing writing = start(file, kSmall);
    for (int i = 0; i < frames; ++i)
        EXPECT_TRUE(append(writing, i));
    finish(writing);
    EXPECT_EQ(writing.writer->status(), AVAssetWriter::Status::completed)
        << writing.writer->error().message;
}

std::unique_ptr<AVAssetExportSession>
MovieTest::session(const std::filesystem::path& movie, int frames, const Music& music) {
    AVMutableComposition composition;
    const auto insert = [&](MediaType type, const auto& from, CMTimeRange range, CMTime at) {
        const auto asset = AVAsset::open(from);
        ASSERT_TRUE(asset) << asset.error().message;
        const auto tracks = asset->tracksWithMediaType(type);
        ASSERT_FALSE(tracks.empty());
        EXPECT_TRUE(composition.addMutableTrack(type, 0).insertTimeRange(range, tracks[0], at));
    };
    insert(MediaType::video, movie, {{}, {frames, 60}}, {});
    AVMutableAudioMix mix;
    if (!music.file.empty()) {
        const auto time = [](double seconds) { return CMTime::makeWithSeconds(seconds, 60); };
        insert(
            MediaType::audio, music.file, {time(music.in), time(music.duration)}, time(music.at));
        mix.inputParameters.push_back(music.volume);
        mix.inputParameters[0].setTrackID(composition.firstTrack(MediaType::audio)->trackID());
    }
    auto made = std::make_unique<AVAssetExportSession>(std::move(composition));
    made->outputURL = file("Movie.mov");
    made->timeRange = {{}, {frames, 60}};
    made->audioMix = mix;
    made->shouldOptimizeForNetworkUse = true;
    return made;
}

void MovieTest::run(AVAssetExportSession& session) {
    std::promise<void> done;
    session.exportAsynchronously([&] { done.set_value(); });
    done.get_future().wait();
}

} // namespace zelvo::media
