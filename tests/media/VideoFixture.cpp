// SPDX-License-Identifier: MIT
#include "media/VideoFixture.h"

#include "platform/foundation/Check.h"
#include "platform/media/FFmpeg.h"

extern "C" {
#include <libavutil/display.h>
#include <libavutil/pixdesc.h>
#include <libswscale/swscale.h>
}

#include <array>
#include <string>

namespace zelvo::media {
namespace {

using image::Image;

constexpr int kBars = 8;

FFmpegPtr<AVCodecContext> openEncoder(const VideoToMake& video) {
    const AVCodec* const codec = avcodec_find_encoder_by_name(video.encoder);
    CHECK(codec != nullptr, "FFmpeg has no encoder {}", video.encoder);
    FFmpegPtr<AVCodecContext> encoder(avcodec_alloc_context3(codec));
    encoder->width = video.width;
    encoder->height = video.height;
    encoder->pix_fmt = av_get_pix_fmt(video.pixelFormat);
    encoder->time_base = {1, video.ticksPerSecond};
    encoder->framerate = {30, 1};
    encoder->sample_aspect_ratio = av_d2q(video.pixelAspect, 100);
    encoder->colorspace = static_cast<AVColorSpace>(av_color_space_from_name(video.matrix));
    encoder->color_trc =
        static_cast<AVColorTransferCharacteristic>(av_color_transfer_from_name(video.transfer));
    if (video.isInterlaced) {
        encoder->field_order = AV_FIELD_TT;
        encoder->flags |= AV_CODEC_FLAG_INTERLACED_DCT;
    }
    encoder->color_range = video.hasFullRange ? AVCOL_RANGE_JPEG : AVCOL_RANGE_MPEG;
    encoder->gop_size = video.keyInterval;
    encoder->max_b_frames = video.bFrames;
    encoder->thread_count = 1;
    encoder->flags |= AV_CODEC_FLAG_GLOBAL_HEADER | AV_CODEC_FLAG_BITEXACT;
    encoder->bit_rate = 4'000'000;
    Options options{{"preset", "veryfast"}, {"deadline", "realtime"}, {"cpu-used", "8"}};
    CHECK(
        avcodec_open2(encoder.get(), codec, options.get()) >= 0,
        "the encoder {} does not open",
        video.encoder);
    return encoder;
}

AVStream& addStream(AVFormatContext& format, const AVCodecContext& encoder, double quarterTurns) {
    AVStream& stream = *avformat_new_stream(&format, nullptr);
    avcodec_parameters_from_context(stream.codecpar, &encoder);
    stream.time_base = encoder.time_base;
    stream.sample_aspect_ratio = encoder.sample_aspect_ratio;
    if (encoder.codec_id == AV_CODEC_ID_VP9)
        av_dict_set(&stream.metadata, "alpha_mode", "1", 0);
    if (quarterTurns != 0) {
        constexpr std::size_t kNumbers = 9;
        std::uint8_t* const matrix = av_stream_new_side_data(
            &stream, AV_PKT_DATA_DISPLAYMATRIX, kNumbers * sizeof(std::int32_t));
        // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): the library keeps bytes
        av_display_rotation_set(reinterpret_cast<std::int32_t*>(matrix), 90 * quarterTurns);
    }
    return stream;
}

/// Sends a frame (null: the end) and writes what is encoded.
void encode(AVCodecContext& encoder, const AVFrame* frame, AVFormatContext& format) {
    const FFmpegPtr<AVPacket> packet(av_packet_alloc());
    CHECK(avcodec_send_frame(&encoder, frame) >= 0, "a frame is refused");
    while (avcodec_receive_packet(&encoder, packet.get()) >= 0) {
        packet->duration = encoder.time_base.den / 30;
        av_packet_rescale_ts(packet.get(), encoder.time_base, format.streams[0]->time_base);
        packet->stream_index = 0;
        CHECK(av_interleaved_write_frame(&format, packet.get()) >= 0, "a packet is refused");
    }
}

FFmpegPtr<AVFrame> converted(const Image& picture, const AVCodecContext& encoder) {
    FFmpegPtr<AVFrame> frame(av_frame_alloc());
    frame->format = encoder.pix_fmt;
    frame->width = encoder.width;
    frame->height = encoder.height;
    frame->colorspace = encoder.colorspace;
    frame->color_trc = encoder.color_trc;
    frame->interlaced_frame = encoder.field_order == AV_FIELD_TT ? 1 : 0;
    frame->top_field_first = frame->interlaced_frame;
    frame->color_range = encoder.color_range;
    av_frame_get_buffer(frame.get(), 0);
    SwsContext* const scaler = sws_getContext(
        picture.width,
        picture.height,
        AV_PIX_FMT_RGBA,
        frame->width,
        frame->height,
        encoder.pix_fmt,
        SWS_BILINEAR | SWS_ACCURATE_RND,
        nullptr,
        nullptr,
        nullptr);
    constexpr int kNeutral = 1 << 16;
    // FFmpeg's numbers of a matrix and of a scaler's coefficients are the same.
    const int* const coefficients = sws_getCoefficients(encoder.colorspace);
    const int range = encoder.color_range == AVCOL_RANGE_JPEG ? 1 : 0;
    sws_setColorspaceDetails(scaler, coefficients, 1, coefficients, range, 0, kNeutral, kNeutral);
    const std::array<const std::uint8_t*, 4> planes{picture.pixels.data()};
    const std::array<int, 4> strides{picture.width * 4};
    sws_scale(
        scaler,
        planes.data(),
        strides.data(),
        0,
        picture.height,
        static_cast<std::uint8_t* const*>(frame->data),
        static_cast<const int*>(frame->linesize));
    sws_freeContext(scaler);
    return frame;
}

} // namespace

void drawNumber(Image& picture, int number) {
    for (int y = 0; y < picture.height; ++y) {
        for (int x = 0; x < picture.width; ++x) {
            const int bar = x * kBars / picture.width;
            const bool isSet = ((number >> (kBars - 1 - bar)) & 1) != 0;
            const int level = y * 2 >= picture.height ? 128 : isSet ? 255 : 0;
            const auto place = static_cast<std::size_t>(y * picture.width + x) * 4;
            std::fill_n(&picture.pixels[place], 3, static_cast<std::uint8_t>(level));
            picture.pixels[place + 3] = 255;
        }
    }
}

int numberIn(const Image& picture) {
    int number = 0;
    for (int bar = 0; bar < kBars; ++bar) {
        const int x = (2 * bar + 1) * picture.width / (2 * kBars);
        const auto place = static_cast<std::size_t>(picture.height / 4 * picture.width + x) * 4;
        number = 2 * number + (picture.pixels[place] > 128 ? 1 : 0);
    }
    return number;
}

void makeVideo(const std::filesystem::path& file, const VideoToMake& video) {
    silenceFFmpeg();
    const FFmpegPtr<AVCodecContext> encoder = openEncoder(video);
    AVFormatContext* format = nullptr;
    avformat_alloc_output_context2(&format, nullptr, nullptr, file.c_str());
    CHECK(format != nullptr, "FFmpeg cannot write {}", file.string());
    format->flags |= AVFMT_FLAG_BITEXACT;
    addStream(*format, *encoder, video.quarterTurns);
    CHECK(avio_open(&format->pb, file.c_str(), AVIO_FLAG_WRITE) >= 0, "no file {}", file.string());
    CHECK(avformat_write_header(format, nullptr) >= 0, "no header in {}", file.string());
    Image picture(video.width, video.height);
    for (int i = 0; i < video.frames; ++i) {
        video.draw(picture, i);
        const FFmpegPtr<AVFrame> frame = converted(picture, *encoder);
        frame->pts = video.timeOf(i);
        encode(*encoder, frame.get(), *format);
    }
    encode(*encoder, nullptr, *format);
    av_write_trailer(format);
    avio_closep(&format->pb);
    avformat_free_context(format);
}

} // namespace zelvo::media
