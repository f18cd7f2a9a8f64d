// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/media/CMTime.h"
#include "platform/media/ColorBleed.h"
#include "platform/media/EncoderChoice.h"
#include "platform/media/FFmpeg.h"
#include "platform/media/PixelBuffer.h"
#include "platform/media/VideoSettings.h"

#include <functional>
#include <utility>

namespace zelvo::media {

/// Turns pictures into packets: converts to the encoder's format and encodes. No frame refers to a later one, so packets come in display order and a movie can be cut
/// after any frame.
class VideoEncoder {
public:
    using PacketSink = std::function<foundation::Result<void>(AVPacket&)>;

    static constexpr std::int32_t kTimescale = ChosenEncoder::kTimescale;
    static constexpr std::int32_t kFramesPerSecond = ChosenEncoder::kFramesPerSecond;

    /// Error: `unavailable` if no encoder for the codec works.
    [[nodiscard]] static foundation::Result<VideoEncoder> open(const VideoSettings& settings);

    /// With alpha, the colours of the picture's transparent pixels are changed.
    [[nodiscard]] foundation::Result<void>
    encode(PixelBuffer& picture, CMTime time, const PacketSink& sink);

    /// Writes the frames that the encoder still holds.
    [[nodiscard]] foundation::Result<void> finish(const PacketSink& sink);

    [[nodiscard]] const AVCodecContext& context() const { return encoder.context(); }

private:
    explicit VideoEncoder(ChosenEncoder chosen)
        : encoder(std::move(chosen)) {}

    [[nodiscard]] foundation::Result<void> prepareFrame(PixelBuffer& picture);
    void convert(PixelBuffer& picture);
    [[nodiscard]] foundation::Result<void> send(AVFrame* next, const PacketSink& sink);

    ChosenEncoder encoder;
    FFmpegPtr<AVFrame> frame;
    FFmpegPtr<AVPacket> packet;
    ColorBleed bleed; ///< used with alpha
};

} // namespace zelvo::media
