// SPDX-License-Identifier: MIT
#include "export/RawMovie.h"

#include "platform/foundation/Check.h"
#include "shared/FrameClock.h"

#include <cstring>
#include <utility>

namespace zelvo::movie {

using foundation::Result;

namespace {

/// A copy, because the renderer keeps its picture only until the next call.
media::PixelBuffer copied(const render::FrameView& frame, media::PixelBufferPool& pool) {
    media::PixelBuffer picture = pool.acquire();
    CHECK(
        picture.width() == frame.size.width && picture.height() == frame.size.height,
        "a frame of {} x {} came for a movie of {} x {}",
        frame.size.width,
        frame.size.height,
        picture.width(),
        picture.height());
    const std::size_t rowBytes = static_cast<std::size_t>(frame.size.width) * 4;
    CHECK(
        frame.bytes.size() >= rowBytes * static_cast<std::size_t>(frame.size.height),
        "a frame is cut short");
    for (int y = 0; y < frame.size.height; ++y) {
        std::memcpy(
            picture.row(y), frame.bytes.data() + rowBytes * static_cast<std::size_t>(y), rowBytes);
    }
    return picture;
}

} // namespace

Result<std::unique_ptr<RawMovie>>
RawMovie::create(const std::filesystem::path& file, const media::VideoSettings& settings) {
    auto writer = media::AVAssetWriter::create(file);
    if (!writer)
        return tl::unexpected(writer.error());
    if (!(*writer)->canAddInput()) {
        return foundation::fail(
            foundation::Cause::unsupported, "this machine cannot write such a video");
    }
    return std::unique_ptr<RawMovie>(new RawMovie(std::move(*writer), settings));
}

RawMovie::RawMovie(
    std::unique_ptr<media::AVAssetWriter> writer, const media::VideoSettings& settings)
    : assetWriter(std::move(writer))
    , videoInput(assetWriter->addInput(std::make_unique<media::AVAssetWriterInput>(settings)))
    , pixelBufferInput(
          videoInput,
          media::PixelBufferPool(settings.width, settings.height, media::PixelFormat::rgba)) {}

Result<void> RawMovie::append(const render::FrameView& frame, media::CMTime presentationTime) {
    if (!writerHasStarted) {
        if (auto started = startSession(); !started)
            return started;
    }
    videoInput.waitUntilReady();
    return pixelBufferInput.appendPixelBuffer(
        copied(frame, pixelBufferInput.pixelBufferPool()), presentationTime);
}

Result<void> RawMovie::startSession() {
    if (auto started = assetWriter->startWriting(); !started)
        return started;
    assetWriter->startSessionAtSourceTime(shared::FrameClock::presentationTime(0));
    writerHasStarted = true;
    return {};
}

void RawMovie::finish(std::function<void()> completion) {
    assetWriter->finishWritingWithCompletionHandler(std::move(completion));
}

Result<void> RawMovie::outcome() const {
    using Status = media::AVAssetWriter::Status;
    if (assetWriter->status() == Status::completed)
        return {};
    if (assetWriter->status() == Status::failed)
        return tl::unexpected(assetWriter->error());
    return foundation::fail(foundation::Cause::cancelled, "the movie was cancelled");
}

void RawMovie::cancel() {
    assetWriter->cancelWriting();
}

} // namespace zelvo::movie
