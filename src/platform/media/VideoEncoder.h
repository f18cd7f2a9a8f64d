// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/media/CMTime.h"
#include "platform/media/EncoderChoice.h"
#include "platform/media/FFmpeg.h"
#include "platform/media/PixelBuffer.h"
#include "platform/media/VideoSettings.h"

#include <functional>
#include <utility>

namespace zelvo::media {

/// Turns pictures into packets: converts to 4:2:0, scales if the size differs from the movie's,
/// encodes. No frame refers to a later one, so packets come in display order and a movie can be cut
/// after any frame.
class VideoEncoder {
public:
    using PacketSink = std::function<foundation::Result<void>(AVPacket&)>;

    static constexpr std::int32_t kTimescale = ChosenEncoder::kTimescale;
    static constexpr std::int32_t kFramesPerSecond = ChosenEncoder::kFramesPerSecond;

    /// Error: `unavailable` if no encoder for the codec works.
    [[nodiscard]] static foundation::Result<VideoEncoder> open(const VideoSettings& settings);

    [[nodiscard]] foundation::Result<void>
    encode(const PixelBuffer& picture, CMTime time, const PacketSink& sink);

    /// Writes the frames that the encoder still holds.
    [[nodiscard]] foundation::Result<void> finish(const PacketSink& sink);

    [[nodiscard]] const AVCodecContext& context() const { return encoder.context(); }

private:
    explicit VideoEncoder(ChosenEncoder chosen)
        : encoder(std::move(chosen)) {}

    [[nodiscard]] foundation::Result<void> prepareFrame(const PixelBuffer& picture);
    [[nodiscard]] foundation::Result<void> send(AVFrame* next, const PacketSink& sink);

    ChosenEncoder encoder;
    FFmpegPtr<AVFrame> frame;
    FFmpegPtr<AVPacket> packet;
};

} // namespace zelvo::media
