// SPDX-License-Identifier: MIT
#pragma once

// FFmpeg's C interface, with owners for its objects. Only for the sources of this folder.

#include "platform/foundation/Result.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/channel_layout.h>
#include <libavutil/opt.h>
#include <libswresample/swresample.h>
}

#include <filesystem>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace zelvo::media {

/// Closes a file opened for reading, by openMediaFile or by FFmpeg itself.
void closeMediaFile(AVFormatContext* context);

struct FFmpegDelete {
    void operator()(AVFormatContext* context) const { closeMediaFile(context); }

    void operator()(AVCodecContext* context) const { avcodec_free_context(&context); }

    void operator()(AVFrame* frame) const { av_frame_free(&frame); }

    void operator()(AVPacket* packet) const { av_packet_free(&packet); }

    void operator()(SwrContext* context) const { swr_free(&context); }

    void operator()(AVBufferRef* buffer) const { av_buffer_unref(&buffer); }
};

template <class T> using FFmpegPtr = std::unique_ptr<T, FFmpegDelete>;

/// Owns a dictionary of options.
class Options {
public:
    Options(std::initializer_list<std::pair<std::string_view, std::string_view>> entries);
    ~Options();
    Options(const Options&) = delete;
    Options& operator=(const Options&) = delete;

    [[nodiscard]] AVDictionary** get() { return &entries_; }

private:
    AVDictionary* entries_ = nullptr;
};

/// Stops FFmpeg's own messages on the console. Call it before any use of FFmpeg.
void silenceFFmpeg();

[[nodiscard]] std::string describeAVError(int code);

/// Explains a failed write to the user: disk full, no permission, folder missing.
[[nodiscard]] foundation::Error writingError(int code, const std::filesystem::path& file);

} // namespace zelvo::media
