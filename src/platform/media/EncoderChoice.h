// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/media/FFmpeg.h"
#include "platform/media/VideoSettings.h"

#include <cstdint>
#include <span>
#include <utility>

namespace zelvo::media {

/// The encoder of a movie. It takes pictures in planes, in the pixel format of its context; one in
/// hardware takes 4:2:0.
class ChosenEncoder {
public:
    /// The time unit of packets is 1 / kTimescale seconds.
    static constexpr std::int32_t kTimescale = 600;
    static constexpr std::int32_t kFramesPerSecond = VideoSettings::kFramesPerSecond;

    /// Opens a hardware encoder if one works and the codec is HEVC, otherwise a software encoder.
    /// Error: `unavailable` if there is none.
    [[nodiscard]] static foundation::Result<ChosenEncoder> open(const VideoSettings& settings);

    [[nodiscard]] AVCodecContext& context() const { return *codec; }

    /// Sends a picture with its pts to the encoder; null at the end. A negative result is FFmpeg's
    /// error.
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
