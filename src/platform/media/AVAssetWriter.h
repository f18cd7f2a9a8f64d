// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/media/CMTime.h"
#include "platform/media/PixelBuffer.h"
#include "platform/media/VideoSettings.h"

#include <filesystem>
#include <functional>
#include <memory>

namespace zelvo::media {

class FrameEncoder;

/// The video track of a movie that is written. It accepts up to three frames before the encoder has
/// taken them. Wait for room so that no frame is lost.
class AVAssetWriterInput {
public:
    explicit AVAssetWriterInput(const VideoSettings& outputSettings);

    [[nodiscard]] const VideoSettings& outputSettings() const { return outputSettings_; }

    /// False before writing has started and while the queue is full. True after a failure, so that
    /// nobody waits for an ended writer; the next append returns the error.
    [[nodiscard]] bool isReadyForMoreMediaData() const;

    /// Blocks until there is room or the encoder has failed. Writing must have started.
    void waitUntilReady() const;

private:
    friend class AVAssetWriter;
    friend class AVAssetWriterInputPixelBufferAdaptor;

    VideoSettings outputSettings_;
    FrameEncoder* encoder = nullptr; // the writer's, once it has started
};

/// Appends pictures to an input, which must outlive it.
class AVAssetWriterInputPixelBufferAdaptor {
public:
    /// All pictures must have the movie's size; they need not come from the pool.
    AVAssetWriterInputPixelBufferAdaptor(
        AVAssetWriterInput& assetInput, PixelBufferPool picturePool);

    [[nodiscard]] PixelBufferPool& pixelBufferPool() { return pool; }

    /// Queues a frame. The input must be ready. Times must increase and must not be before the
    /// session's start. Error: that of the writer, if it has failed.
    [[nodiscard]] foundation::Result<void>
    appendPixelBuffer(PixelBuffer picture, CMTime presentationTime);

private:
    AVAssetWriterInput& input;
    PixelBufferPool pool;
};

/// Writes frames to a QuickTime movie. Encodes on its own thread.
///
///     create -> add -> startWriting -> startSessionAtSourceTime -> append ... -> finishWriting...
///
/// The file has avc1 or hvc1 video with a timescale of 600, so that n/60 s is exact. A frame lasts
/// 1/60 s; colours are BT.709 in video range. No frame refers to a later one. If the writer is
/// destroyed before it has finished, the file is removed. Use it from one thread; only the
/// completion is called on another.
class AVAssetWriter {
public:
    enum class Status { unknown, writing, completed, failed, cancelled };

    /// Creates the file. Error: `unwritable`.
    [[nodiscard]] static foundation::Result<std::unique_ptr<AVAssetWriter>>
    create(const std::filesystem::path& path);

    ~AVAssetWriter();
    AVAssetWriter(const AVAssetWriter&) = delete;
    AVAssetWriter& operator=(const AVAssetWriter&) = delete;

    /// True before writing starts, if there is no input yet.
    [[nodiscard]] bool canAddInput() const;
    AVAssetWriterInput& addInput(std::unique_ptr<AVAssetWriterInput> input);

    /// Opens the encoder. Errors: `unavailable` if there is none, `unwritable` if the file's header
    /// cannot be written.
    [[nodiscard]] foundation::Result<void> startWriting();

    /// This presentation time becomes 0 in the movie. Call it once, after startWriting.
    void startSessionAtSourceTime(CMTime time);

    [[nodiscard]] Status status() const;

    /// The cause of status failed.
    [[nodiscard]] foundation::Error error() const;

    /// Encodes the queued frames and closes the file, then calls `completion` on the writer's
    /// thread, with the status completed, failed or cancelled. The completion must not destroy the
    /// writer; post to the run loop instead.
    void finishWritingWithCompletionHandler(std::function<void()> completion);

    /// Drops queued frames and removes the file, before it returns. Does nothing if the movie is
    /// completed.
    void cancelWriting();

    /// Processor time of the writer's thread for converting and encoding so far, in seconds. With
    /// more than three cores the encoder uses further threads, which are not counted. Any thread.
    [[nodiscard]] double encodingSeconds() const;

private:
    explicit AVAssetWriter(std::unique_ptr<FrameEncoder> encoder);

    std::unique_ptr<FrameEncoder> encoder;
    std::unique_ptr<AVAssetWriterInput> input;
};

} // namespace zelvo::media
