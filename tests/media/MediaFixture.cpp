// SPDX-License-Identifier: MIT
#include "media/MediaFixture.h"

#include "platform/media/FFmpeg.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <iterator>
#include <numbers>

namespace zelvo::media {

std::vector<std::string> MediaTest::filesLeft() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        names.push_back(entry.path().filename().string());
    }
    std::ranges::sort(names);
    return names;
}

Bytes readBytes(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

void writeBytes(const std::filesystem::path& file, std::span<const std::uint8_t> bytes) {
    std::ofstream out(file, std::ios::binary);
    std::ranges::copy(bytes, std::ostreambuf_iterator<char>(out));
}

Wave sine(double frequency, double amplitude) {
    return [=](double t) { return amplitude * std::sin(2.0 * std::numbers::pi * frequency * t); };
}

namespace {

void sendAll(AVCodecContext& encoder, const AVFrame* frame, AVFormatContext& format) {
    const FFmpegPtr<AVPacket> packet(av_packet_alloc());
    avcodec_send_frame(&encoder, frame);
    while (avcodec_receive_packet(&encoder, packet.get()) == 0) {
        packet->stream_index = 0;
        av_packet_rescale_ts(packet.get(), encoder.time_base, format.streams[0]->time_base);
        av_interleaved_write_frame(&format, packet.get());
    }
}

/// One mono sample in the encoder's first channel plane, floats or 16 bits.
void putSample(AVFrame& frame, int index, double value) {
    if (frame.format == AV_SAMPLE_FMT_S16) {
        reinterpret_cast<std::int16_t*>(frame.data[0])[index] =
            static_cast<std::int16_t>(std::lround(value * 32767.0));
    } else {
        reinterpret_cast<float*>(frame.data[0])[index] = static_cast<float>(value);
    }
}

} // namespace

bool encodeSound(
    const std::filesystem::path& file,
    const char* encoder,
    double seconds,
    const Wave& wave,
    int sampleRate) {
    silenceFFmpeg();
    const AVCodec* codec = avcodec_find_encoder_by_name(encoder);
    if (codec == nullptr)
        return false;
    const FFmpegPtr<AVCodecContext> context(avcodec_alloc_context3(codec));
    for (const auto* format = codec->sample_fmts; *format != AV_SAMPLE_FMT_NONE; ++format) {
        if (*format == AV_SAMPLE_FMT_FLTP || *format == AV_SAMPLE_FMT_S16) {
            context->sample_fmt = *format;
        }
    }
    context->sample_rate = sampleRate;
    context->time_base = {1, context->sample_rate};
    context->flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
    av_channel_layout_default(&context->ch_layout, 1);
    if (avcodec_open2(context.get(), codec, nullptr) < 0)
        return false;
    AVFormatContext* format = nullptr;
    avformat_alloc_output_context2(&format, nullptr, nullptr, file.c_str());
    AVStream* stream = avformat_new_stream(format, nullptr);
    avcodec_parameters_from_context(stream->codecpar, context.get());
    stream->time_base = context->time_base;
    avio_open(&format->pb, file.c_str(), AVIO_FLAG_WRITE);
    Options options{{"page_duration", "60000"}}; // Ogg, microseconds: short, as in rich sound
    const bool hasBegun = avformat_write_header(format, options.get()) >= 0;
    const int total = static_cast<int>(std::lround(seconds * context->sample_rate));
    const int step = context->frame_size > 0 ? context->frame_size : 1024;
    for (int from = 0; hasBegun && from < total; from += step) {
        const FFmpegPtr<AVFrame> frame(av_frame_alloc());
        frame->nb_samples = std::min(step, total - from);
        frame->format = context->sample_fmt;
        frame->sample_rate = context->sample_rate;
        av_channel_layout_copy(&frame->ch_layout, &context->ch_layout);
        av_frame_get_buffer(frame.get(), 0);
        for (int i = 0; i < frame->nb_samples; ++i) {
            putSample(*frame, i, wave(static_cast<double>(from + i) / context->sample_rate));
        }
        frame->pts = from;
        sendAll(*context, frame.get(), *format);
    }
    if (hasBegun)
        sendAll(*context, nullptr, *format);
    if (hasBegun)
        av_write_trailer(format);
    avio_closep(&format->pb);
    avformat_free_context(format);
    return hasBegun;
}

void writeWav(const std::filesystem::path& file, int sampleRate, double seconds, const Wave& wave) {
    EXPECT_TRUE(encodeSound(file, "pcm_s16le", seconds, wave, sampleRate));
}

namespace {

FFmpegPtr<AVCodecContext> openDecoder(const AVStream& stream) {
    const AVCodec* codec = avcodec_find_decoder(stream.codecpar->codec_id);
    FFmpegPtr<AVCodecContext> decoder(avcodec_alloc_context3(codec));
    avcodec_parameters_to_context(decoder.get(), stream.codecpar);
    decoder->pkt_timebase = stream.time_base;
    return avcodec_open2(decoder.get(), codec, nullptr) < 0 ? nullptr : std::move(decoder);
}

struct MovieDecoder {
    DecodedMovie movie;
    int probeX;
    int probeY;

    void takeVideo(const AVFrame& frame, double unit) {
        movie.frameTimes.push_back(static_cast<double>(frame.pts) * unit);
        movie.isBt709Limited =
            frame.colorspace == AVCOL_SPC_BT709 && frame.color_primaries == AVCOL_PRI_BT709 &&
            frame.color_trc == AVCOL_TRC_BT709 && frame.color_range == AVCOL_RANGE_MPEG;
        const auto at = [&](int plane, int x, int y) {
            return frame.data[plane][y * frame.linesize[plane] + x];
        };
        movie.centres.push_back(
            {at(0, probeX, probeY), at(1, probeX / 2, probeY / 2), at(2, probeX / 2, probeY / 2)});
    }

    void takeAudio(const AVFrame& frame, double unit) {
        if (movie.left.empty())
            movie.soundStart = static_cast<double>(frame.pts) * unit;
        const auto* samples = reinterpret_cast<const float*>(frame.data[0]);
        movie.left.insert(movie.left.end(), samples, samples + frame.nb_samples);
    }

    void decode(AVCodecContext& decoder, const AVPacket* packet, const AVStream& stream) {
        const FFmpegPtr<AVFrame> frame(av_frame_alloc());
        avcodec_send_packet(&decoder, packet);
        while (avcodec_receive_frame(&decoder, frame.get()) == 0) {
            const bool isVideo = decoder.codec_type == AVMEDIA_TYPE_VIDEO;
            const double unit = av_q2d(stream.time_base);
            isVideo ? takeVideo(*frame, unit) : takeAudio(*frame, unit);
        }
    }
};

std::string lettersOf(unsigned tag) {
    std::string letters;
    for (unsigned shift = 0; shift < 32; shift += 8)
        letters += static_cast<char>((tag >> shift) & 0xFFU);
    return letters;
}

} // namespace

DecodedMovie decodeMovie(const std::filesystem::path& file, int probeX, int probeY) {
    AVFormatContext* opened = nullptr;
    if (avformat_open_input(&opened, file.c_str(), nullptr, nullptr) < 0)
        return {};
    const FFmpegPtr<AVFormatContext> format(opened);
    avformat_find_stream_info(opened, nullptr);
    MovieDecoder reader{{}, probeX, probeY};
    std::vector<FFmpegPtr<AVCodecContext>> decoders;
    for (unsigned i = 0; i < format->nb_streams; ++i) {
        const AVCodecParameters& codec = *format->streams[i]->codecpar;
        decoders.push_back(openDecoder(*format->streams[i]));
        if (codec.codec_type == AVMEDIA_TYPE_AUDIO) {
            reader.movie.audioCodec = avcodec_get_name(codec.codec_id);
        } else {
            reader.movie.videoTag = lettersOf(codec.codec_tag);
        }
    }
    const FFmpegPtr<AVPacket> packet(av_packet_alloc());
    while (av_read_frame(format.get(), packet.get()) >= 0) {
        const auto index = static_cast<std::size_t>(packet->stream_index);
        reader.decode(*decoders[index], packet.get(), *format->streams[index]);
        av_packet_unref(packet.get());
    }
    for (std::size_t i = 0; i < decoders.size(); ++i) {
        reader.decode(*decoders[i], nullptr, *format->streams[i]);
    }
    return reader.movie;
}

double DecodedMovie::loudness(double from, double to) const {
    const auto index = [&](double seconds) {
        const auto sample = std::llround((seconds - soundStart) * 48000.0);
        return std::clamp<std::int64_t>(sample, 0, static_cast<std::int64_t>(left.size()));
    };
    double sum = 0.0;
    for (auto i = index(from); i < index(to); ++i) {
        const double value = left[static_cast<std::size_t>(i)];
        sum += value * value;
    }
    return std::sqrt(sum / ((to - from) * 48000.0));
}

std::vector<std::string> topAtoms(const std::filesystem::path& file) {
    const Bytes bytes = readBytes(file);
    std::vector<std::string> names;
    std::size_t at = 0;
    while (at + 8 <= bytes.size()) {
        std::size_t size = 0;
        for (std::size_t i = 0; i < 4; ++i)
            size = size << 8U | bytes[at + i];
        names.emplace_back(
            bytes.begin() + static_cast<std::ptrdiff_t>(at) + 4,
            bytes.begin() + static_cast<std::ptrdiff_t>(at) + 8);
        if (size < 8)
            break;
        at += size;
    }
    return names;
}

} // namespace zelvo::media
