// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/media/AVAssetWriter.h"
#include "platform/media/BoundedQueue.h"
#include "platform/media/MovieFile.h"
#include "platform/media/VideoEncoder.h"

#include <atomic>
#include <mutex>
#include <optional>
#include <thread>

namespace zelvo::media {

/// The thread of an AVAssetWriter, and the data it shares with the producer.
class FrameEncoder {
public:
    using Status = AVAssetWriter::Status;

    explicit FrameEncoder(MovieFile movie);
    ~FrameEncoder();
    FrameEncoder(const FrameEncoder&) = delete;
    FrameEncoder& operator=(const FrameEncoder&) = delete;

    // Called by the producer.
    [[nodiscard]] foundation::Result<void> start(const VideoSettings& settings);
    void setSessionStart(CMTime time);
    [[nodiscard]] bool isReady() const;
    void waitUntilReady() const;
    [[nodiscard]] foundation::Result<void> append(PixelBuffer picture, CMTime time);
    void finish(std::function<void()> whenDone);
    void cancel();

    [[nodiscard]] Status status() const { return status_; }

    [[nodiscard]] foundation::Error error() const;

    [[nodiscard]] double encodingSeconds() const { return encodingSeconds_; }

private:
    struct Frame {
        PixelBuffer picture;
        CMTime time;
    };

    // Run on the thread.
    void run();
    [[nodiscard]] foundation::Result<void> encodeAll();
    [[nodiscard]] foundation::Result<void> writePacket(AVPacket& packet);
    void fail(foundation::Error why);

    const std::filesystem::path path;
    std::optional<MovieFile> file; // used by the thread while it runs
    std::optional<VideoEncoder> video;
    int track = 0;

    BoundedQueue<Frame> frames;
    std::atomic<Status> status_ = Status::unknown;
    std::atomic<double> encodingSeconds_ = 0.0;
    mutable std::mutex mutex; // guards error_, completion and hasEnded
    foundation::Error error_;
    std::function<void()> completion;
    bool hasEnded = false;

    CMTime sessionStart; // used by the producer
    CMTime lastTime = CMTime::negativeInfinity();
    std::thread thread;
};

} // namespace zelvo::media
