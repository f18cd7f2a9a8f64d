// SPDX-License-Identifier: MIT
#pragma once

// Uses FFmpeg's types: only for the sources of this folder.

#include "platform/foundation/Result.h"
#include "platform/media/FFmpeg.h"
#include "platform/media/VideoTimeline.h"

#include <cstdint>
#include <filesystem>
#include <optional>

namespace zelvo::media {

/// The stream that holds the video of an open file; empty if there is none, or only a cover.
[[nodiscard]] std::optional<int> videoStreamOf(AVFormatContext& format);

/// Decodes frames of a video stream: on from the last one, or from the key picture before a time.
class VideoDecoder {
public:
    /// Takes the file. Errors: `unsupported`, `tooLarge`.
    [[nodiscard]] static foundation::Result<VideoDecoder>
    open(FFmpegPtr<AVFormatContext> file, int stream, const std::filesystem::path& name);

    [[nodiscard]] const AVFormatContext& format() const { return *format_; }

    [[nodiscard]] const AVStream& stream() const { return *format_->streams[streamIndex]; }

    [[nodiscard]] const VideoTimeline& timeline() const { return timeline_; }

    /// The frame of this picture, or the nearest one before it that can be decoded. If there is
    /// none before it, the first one after it; null if nothing can be decoded. Valid until the next
    /// call.
    [[nodiscard]] const AVFrame* frameAt(std::size_t index);

private:
    VideoDecoder(FFmpegPtr<AVFormatContext> file, int number);

    [[nodiscard]] foundation::Result<void> openCodec(const std::filesystem::path& name);
    [[nodiscard]] bool readTimeline();
    [[nodiscard]] bool mustRewindFor(std::size_t index) const;
    void rewind(std::optional<VideoTimeline::Key> key);
    void decodeUpTo(std::int64_t time);
    [[nodiscard]] bool receive();
    [[nodiscard]] std::int64_t timeOf(const AVFrame& frame);

    FFmpegPtr<AVFormatContext> format_;
    int streamIndex = -1;
    VideoTimeline timeline_;
    FFmpegPtr<AVCodecContext> codec;
    FFmpegPtr<AVPacket> packet;
    FFmpegPtr<AVFrame> shown; ///< the last frame that was asked for
    FFmpegPtr<AVFrame> next;  ///< decoded after it
    std::optional<std::int64_t> shownTime;
    std::optional<std::int64_t> nextTime;
    std::size_t lastIndex = 0; ///< that was asked for
    std::size_t decoded = 0;   ///< since the last rewind
    bool isAtEnd = false;
};

} // namespace zelvo::media
