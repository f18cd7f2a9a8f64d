// SPDX-License-Identifier: MIT
#include "platform/media/VideoEncoder.h"

#include "platform/foundation/Check.h"
#include "platform/media/ColorConversion.h"

#include <algorithm>
#include <array>
#include <thread>

namespace zelvo::media {
namespace {

using foundation::Cause;
using foundation::fail;
using foundation::Result;

constexpr int kMinSide = 16;
constexpr int kMaxSide = 8192;

std::uint16_t* wordsOf(const AVFrame& frame, int plane) {
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): planes of 10 bits have two bytes
    return reinterpret_cast<std::uint16_t*>(frame.data[plane]);
}

} // namespace

Result<VideoEncoder> VideoEncoder::open(const VideoSettings& settings) {
    const auto isGood = [](int side) {
        return side >= kMinSide && side <= kMaxSide && side % 2 == 0;
    };
    CHECK(
        isGood(settings.width) && isGood(settings.height),
        "no movie of {} x {}",
        settings.width,
        settings.height);
    auto chosen = ChosenEncoder::open(settings);
    if (!chosen)
        return tl::unexpected(chosen.error());
    VideoEncoder made(std::move(*chosen));
    made.frame.reset(av_frame_alloc());
    made.packet.reset(av_packet_alloc());
    made.frame->width = settings.width;
    made.frame->height = settings.height;
    made.frame->format =
        made.context().hw_frames_ctx == nullptr ? made.context().pix_fmt : AV_PIX_FMT_YUV420P;
    // ProRes takes them from each frame.
    made.frame->color_primaries = made.context().color_primaries;
    made.frame->color_trc = made.context().color_trc;
    made.frame->colorspace = made.context().colorspace;
    made.frame->color_range = made.context().color_range;
    if (av_frame_get_buffer(made.frame.get(), 0) < 0) {
        return fail(Cause::unavailable, "There is not enough memory for the movie's frames.");
    }
    return made;
}

Result<void> VideoEncoder::prepareFrame(PixelBuffer& picture) {
    // The encoder may still use the last picture; then this allocates new memory for the frame.
    if (av_frame_make_writable(frame.get()) < 0) {
        return fail(Cause::unavailable, "There is not enough memory for the movie's frames.");
    }
    CHECK(
        picture.width() == frame->width && picture.height() == frame->height,
        "a frame of {} x {} came for a movie of {} x {}",
        picture.width(),
        picture.height(),
        frame->width,
        frame->height);
    convert(picture);
    return {};
}

void VideoEncoder::convert(PixelBuffer& picture) {
    if (frame->format != AV_PIX_FMT_YUV420P)
        bleed.fill(picture);
    if (frame->format == AV_PIX_FMT_YUVA444P10LE) {
        convertToYuva444(
            picture,
            {{wordsOf(*frame, 0), wordsOf(*frame, 1), wordsOf(*frame, 2), wordsOf(*frame, 3)},
             {frame->linesize[0] / 2,
              frame->linesize[1] / 2,
              frame->linesize[2] / 2,
              frame->linesize[3] / 2}});
        return;
    }
    convertToYuv420(
        picture,
        {frame->data[0], frame->data[1], frame->data[2], frame->linesize[0], frame->linesize[1]});
    if (frame->format == AV_PIX_FMT_YUVA420P)
        copyAlpha(picture, frame->data[3], frame->linesize[3]);
}

Result<void> VideoEncoder::send(AVFrame* next, const PacketSink& sink) {
    if (const int code = encoder.send(next); code < 0) {
        return fail(Cause::unavailable, "The encoder failed: " + describeAVError(code) + ".");
    }
    while (avcodec_receive_packet(&encoder.context(), packet.get()) == 0) {
        packet->duration = kTimescale / kFramesPerSecond;
        auto written = sink(*packet);
        av_packet_unref(packet.get());
        if (!written)
            return written;
    }
    return {};
}

Result<void> VideoEncoder::encode(PixelBuffer& picture, CMTime time, const PacketSink& sink) {
    if (auto prepared = prepareFrame(picture); !prepared)
        return prepared;
    frame->pts = time.converted(kTimescale).value;
    return send(frame.get(), sink);
}

Result<void> VideoEncoder::finish(const PacketSink& sink) {
    return send(nullptr, sink);
}

} // namespace zelvo::media
