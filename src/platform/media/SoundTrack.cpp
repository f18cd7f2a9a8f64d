// SPDX-License-Identifier: MIT
#include "platform/media/SoundTrack.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <tuple>
#include <utility>

namespace zelvo::media {
namespace {

using foundation::Cause;
using foundation::fail;
using foundation::Result;

constexpr int kRate = AudioReader::kSampleRate;
constexpr int kChannels = AudioReader::kChannels;
constexpr std::int64_t kBitRate = 192000;

struct Row {
    SoundCodec codec;
    const char* name; ///< of FFmpeg's encoder
    AVSampleFormat format;
};

constexpr auto kRows = std::to_array<Row>(
    {{SoundCodec::aac, "aac", AV_SAMPLE_FMT_FLTP},
     {SoundCodec::opus, "libopus", AV_SAMPLE_FMT_FLT}});

std::int64_t samplesAt(double seconds) {
    return std::llround(seconds * kRate);
}

} // namespace

SoundTrack::SoundTrack(AudioReader sound)
    : reader(std::move(sound)) {}

Result<SoundTrack> SoundTrack::open(
    const AVMutableCompositionTrack::Segment& segment,
    AVMutableAudioMixInputParameters volume,
    double lengthSeconds,
    SoundCodec codec) {
    auto reader = AudioReader::open(segment.source.file);
    if (!reader)
        return tl::unexpected(reader.error());
    SoundTrack sound(std::move(*reader));
    if (auto opened = sound.openEncoder(codec); !opened)
        return tl::unexpected(opened.error());
    sound.volume = std::move(volume);
    sound.length = samplesAt(lengthSeconds);
    sound.begin = samplesAt(segment.at.seconds());
    sound.end = samplesAt((segment.at + segment.range.duration).seconds());
    sound.reader.seek(segment.range.start.seconds());
    return sound;
}

Result<void> SoundTrack::openEncoder(SoundCodec wanted) {
    const Row& row = *std::ranges::find(kRows, wanted, &Row::codec);
    const AVCodec* codec = avcodec_find_encoder_by_name(row.name);
    encoder.reset(avcodec_alloc_context3(codec));
    encoder->sample_fmt = row.format;
    encoder->sample_rate = kRate;
    encoder->time_base = {1, kRate};
    encoder->bit_rate = kBitRate;
    encoder->flags |= AV_CODEC_FLAG_GLOBAL_HEADER | AV_CODEC_FLAG_BITEXACT;
    av_channel_layout_default(&encoder->ch_layout, kChannels);
    if (codec == nullptr || avcodec_open2(encoder.get(), codec, nullptr) < 0) {
        return fail(
            Cause::unavailable,
            fmt::format("This machine has no encoder named {} for the movie's sound.", row.name));
    }
    packet.reset(av_packet_alloc());
    frame.reset(av_frame_alloc());
    frame->nb_samples = encoder->frame_size;
    frame->format = encoder->sample_fmt;
    frame->sample_rate = kRate;
    av_channel_layout_copy(&frame->ch_layout, &encoder->ch_layout);
    if (av_frame_get_buffer(frame.get(), 0) < 0) {
        return fail(Cause::unavailable, "There is not enough memory for the movie's sound.");
    }
    block.resize(static_cast<std::size_t>(encoder->frame_size) * kChannels);
    return {};
}

void SoundTrack::addTo(MovieFile& movie) {
    AVCodecParameters* parameters = avcodec_parameters_alloc();
    avcodec_parameters_from_context(parameters, encoder.get());
    track = movie.addTrack(*parameters, encoder->time_base);
    avcodec_parameters_free(&parameters);
}

Result<void> SoundTrack::writeUntil(double seconds, MovieFile& movie) {
    const std::int64_t until = std::min(samplesAt(seconds), length);
    while (position < until) {
        if (auto written = writeFrame(movie); !written)
            return written;
    }
    return {};
}

Result<void> SoundTrack::finish(MovieFile& movie) {
    while (position < length) {
        if (auto written = writeFrame(movie); !written)
            return written;
    }
    return send(nullptr, movie);
}

Result<void> SoundTrack::writeFrame(MovieFile& movie) {
    if (av_frame_make_writable(frame.get()) < 0) {
        return fail(Cause::unavailable, "There is not enough memory for the movie's sound.");
    }
    const auto count = std::min<std::int64_t>(encoder->frame_size, length - position);
    mix(count);
    fillFrame(count);
    frame->nb_samples = static_cast<int>(count);
    frame->pts = position;
    position += count;
    return send(frame.get(), movie);
}

void SoundTrack::fillFrame(std::int64_t count) const {
    const auto plane = [this](int index) {
        // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): floats are given as bytes
        return reinterpret_cast<float*>(frame->extended_data[index]);
    };
    if (encoder->sample_fmt == AV_SAMPLE_FMT_FLT) {
        std::copy_n(block.begin(), count * kChannels, plane(0));
        return;
    }
    for (int channel = 0; channel < kChannels; ++channel) {
        for (std::int64_t i = 0; i < count; ++i)
            plane(channel)[i] = block[static_cast<std::size_t>(i * kChannels + channel)];
    }
}

/// Fills the block with the next samples: silence or the part of the song, with the volume of each
/// sample.
void SoundTrack::mix(std::int64_t count) {
    std::ranges::fill(block, 0.0F);
    const std::int64_t from = std::max(begin, position);
    const std::int64_t to = std::min(end, position + count);
    if (from >= to)
        return;
    const std::span all(block);
    const auto first = static_cast<std::size_t>((from - position) * kChannels);
    const auto size = static_cast<std::size_t>((to - from) * kChannels);
    std::ignore = reader.read(all.subspan(first, size)); // silence after the song's end
    for (std::int64_t i = from; i < to; ++i) {
        const double seconds = static_cast<double>(i) / kRate;
        const auto gain = static_cast<float>(volume.volumeAt(seconds));
        const auto index = static_cast<std::size_t>((i - position) * kChannels);
        block[index] *= gain;
        block[index + 1] *= gain;
    }
}

Result<void> SoundTrack::send(AVFrame* next, MovieFile& movie) {
    if (const int code = avcodec_send_frame(encoder.get(), next); code < 0) {
        return fail(Cause::unavailable, "The sound encoder failed: " + describeAVError(code) + ".");
    }
    while (avcodec_receive_packet(encoder.get(), packet.get()) == 0) {
        auto written = movie.write(*packet, track);
        av_packet_unref(packet.get());
        if (!written)
            return written;
    }
    return {};
}

} // namespace zelvo::media
