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

/// The video of a movie being written. It takes at most three frames ahead of the encoder; a
/// producer that must lose none waits for room.
class AVAssetWriterInput {
public:
    explicit AVAssetWriterInput(const VideoSettings& outputSettings);

    [[nodiscard]] const VideoSettings& outputSettings() const { return outputSettings_; }

    /// False before writing has started and while the queue is full. True also after a failure, so
    /// that nobody waits for a writer that has ended; the next append tells.
    [[nodiscard]] bool isReadyForMoreMediaData() const;

    /// Blocks until the encoder has room, or has failed. Writing must have started.
    void waitUntilReady() const;

private:
    friend class AVAssetWriter;
    friend class AVAssetWriterInputPixelBufferAdaptor;

    VideoSettings outputSettings_;
    FrameEncoder* encoder = nullptr; // the writer's, once it has started
};

/// Takes pictures for an input, which must outlive it.
class AVAssetWriterInputPixelBufferAdaptor {
public:
    /// Pictures of the pool or others, all of the movie's size.
    AVAssetWriterInputPixelBufferAdaptor(
        AVAssetWriterInput& assetInput, PixelBufferPool picturePool);

    [[nodiscard]] PixelBufferPool& pixelBufferPool() { return pool; }

    /// Queues a frame. The input must be ready; times are strictly increasing and not before the
    /// session's start. The error is the writer's own, if it has failed meanwhile.
    [[nodiscard]] foundation::Result<void>
    appendPixelBuffer(PixelBuffer picture, CMTime presentationTime);

private:
    AVAssetWriterInput& input;
    PixelBufferPool pool;
};

/// Writes a QuickTime movie of frames, encoding on a thread of its own.
///
///     create -> add -> startWriting -> startSessionAtSourceTime -> append ... -> finishWriting...
///
/// The file carries avc1 or hvc1 video in a timescale of 600, so that n/60 s is exact, a frame
/// lasting 1/60 s, tagged BT.709 in video range. No frame refers to a later one. A writer that goes
/// without having finished removes the file. Everything but the completion belongs to one thread.
class AVAssetWriter {
public:
    enum class Status { unknown, writing, completed, failed, cancelled };

    /// Makes the file anew; unwritable if the folder does not take it.
    [[nodiscard]] static foundation::Result<std::unique_ptr<AVAssetWriter>>
    create(const std::filesystem::path& path);

    ~AVAssetWriter();
    AVAssetWriter(const AVAssetWriter&) = delete;
    AVAssetWriter& operator=(const AVAssetWriter&) = delete;

    /// One input a movie, before writing starts.
    [[nodiscard]] bool canAddInput() const;
    AVAssetWriterInput& addInput(std::unique_ptr<AVAssetWriterInput> input);

    /// Opens the encoder; unavailable if there is none, unwritable if the file's head cannot be
    /// written.
    [[nodiscard]] foundation::Result<void> startWriting();

    /// The presentation time that becomes the movie's 0. Once, after startWriting.
    void startSessionAtSourceTime(CMTime time);

    [[nodiscard]] Status status() const;

    /// Why the status is failed.
    [[nodiscard]] foundation::Error error() const;

    /// Encodes what is queued and closes the file, then calls the completion on the writer's
    /// thread, with the status completed, failed or cancelled. The completion must not destroy the
    /// writer: let it post to the run loop.
    void finishWritingWithCompletionHandler(std::function<void()> completion);

    /// Drops what is queued and removes the file; done when it returns. Without effect on a movie
    /// that is completed.
    void cancelWriting();

    /// Processor seconds that converting and encoding have taken on the writer's thread up to now
    /// (on machines of more than three cores the encoder has further threads, which are not
    /// counted). Any thread.
    [[nodiscard]] double encodingSeconds() const;

private:
    explicit AVAssetWriter(std::unique_ptr<FrameEncoder> encoder);

    std::unique_ptr<FrameEncoder> encoder;
    std::unique_ptr<AVAssetWriterInput> input;
};

} // namespace zelvo::media
