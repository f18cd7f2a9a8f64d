// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/media/FFmpeg.h"
#include "platform/media/VideoSettings.h"

#include <cstdint>
#include <span>
#include <utility>

namespace zelvo::media {

/// The encoder that a movie is written with, opened for pictures in planes of 4:2:0.
class ChosenEncoder {
public:
    /// Times of packets are in parts of this.
    static constexpr std::int32_t kTimescale = 600;
    static constexpr std::int32_t kFramesPerSecond = VideoSettings::kFramesPerSecond;

    /// A hardware encoder where one works and the codec is HEVC, else a software one. unavailable
    /// if there is none.
    [[nodiscard]] static foundation::Result<ChosenEncoder> open(const VideoSettings& settings);

    [[nodiscard]] AVCodecContext& context() const { return *codec; }

    /// Hands a picture on, with its pts; null for the end. A negative number is FFmpeg's error.
    [[nodiscard]] int send(const AVFrame* picture) const;

private:
    friend bool hasHardwareEncoder(VideoCodec codec);

    struct Row;
    [[nodiscard]] static std::span<const Row> rows();
    [[nodiscard]] static bool probeHardware(VideoCodec codec);

    explicit ChosenEncoder(FFmpegPtr<AVCodecContext> opened)
        : codec(std::move(opened)) {}

    [[nodiscard]] static FFmpegPtr<AVCodecContext>
    openRow(const Row& row, const VideoSettings& settings);
    [[nodiscard]] static bool doesWork(const Row& row);

    FFmpegPtr<AVCodecContext> codec;
};

} // namespace zelvo::media
