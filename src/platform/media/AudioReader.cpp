// SPDX-License-Identifier: MIT
#include "platform/media/AudioReader.h"

#include "platform/media/MeasuredLengths.h"
#include "platform/media/MediaFile.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>
#include <utility>

namespace zelvo::media {
namespace {

using foundation::Cause;
using foundation::fail;
using foundation::Result;

constexpr int kMinSourceRate = 1000; ///< with a lower rate, a few bytes would be hours of sound
constexpr int kMaxSourceRate = 768000;
constexpr int kMaxSourceChannels = 16;

/// Decoders give correct samples only after some packets (overlapping windows, bit reservoirs).
constexpr double kRunUpSeconds = 0.25;

/// Time stamps of some files are wrong by up to this many milliseconds.
constexpr std::int64_t kJitterMs = 100;
/// In Ogg the stamps are the only sign of damage: a page with a wrong checksum is left out without a
/// word, and in rich sound it is shorter than the above. The stamps are off by 10 ms where Vorbis
/// changes the length of its blocks.
constexpr std::int64_t kJitterInOggMs = 30;

/// The longest silence that is inserted at once, in frames.
constexpr std::int64_t kMaxGap = 60LL * AudioReader::kSampleRate;

/// A decoded frame longer than this means that the file is damaged.
constexpr int kMaxFrameSamples = 1 << 17;

/// The shares of the file's channels in the first channel alone.
constexpr auto kFirstChannel = [] {
    std::array<double, kMaxSourceChannels> factors{1.0};
    return factors;
}();
/// Mono goes to both sides at full level; the library would reduce it by 3 dB.
constexpr std::array<double, AudioReader::kChannels> kBothSides{1.0, 1.0};

std::int64_t startOf(const AVStream& stream) {
    return stream.start_time == AV_NOPTS_VALUE ? 0 : stream.start_time;
}

/// In frames of that rate.
std::int64_t jitterIn(const AVFormatContext& format, int rate) {
    const bool isOgg = format.iformat->name == std::string_view("ogg");
    return (isOgg ? kJitterInOggMs : kJitterMs) * rate / 1000;
}

tl::unexpected<foundation::Error> noSoundIn(const std::filesystem::path& file) {
    return fail(
        Cause::malformed,
        file.string() + " holds no sound that can be decoded; save it as a WAV, MP3 or M4A file.");
}

} // namespace

Result<AudioReader> AudioReader::open(const std::filesystem::path& file) {
    AudioReader reader;
    if (auto opened = reader.openDecoder(file); !opened)
        return tl::unexpected(opened.error());
    reader.duration_ = measuredLength(file, [&reader] { return reader.measureDuration(); });
    reader.seek(0.0);
    reader.decodeMore();
    if (reader.pending.empty() || reader.duration_ <= 0.0)
        return noSoundIn(file);
    return reader;
}

Result<AudioReader> AudioReader::openFirstChannel(const std::filesystem::path& file) {
    AudioReader reader;
    if (auto opened = reader.openDecoder(file); !opened)
        return tl::unexpected(opened.error());
    reader.rate =
        std::min(reader.format->streams[reader.stream]->codecpar->sample_rate, kMaxSourceRate);
    reader.channels = 1;
    reader.decodeMore();
    if (reader.pending.empty())
        return noSoundIn(file);
    return reader;
}

Result<void> AudioReader::openDecoder(const std::filesystem::path& file) {
    auto opened = openMediaFile(file);
    if (!opened)
        return tl::unexpected(opened.error());
    format = std::move(*opened);
    const AVCodec* codec = nullptr;
    stream = av_find_best_stream(format.get(), AVMEDIA_TYPE_AUDIO, -1, -1, &codec, 0);
    if (stream < 0 || codec == nullptr) {
        return fail(
            Cause::unsupported,
            file.string() +
                " has no sound that can be decoded; save it as a WAV, MP3 or M4A file.");
    }
    readOnlyStream(*format, stream);
    const AVStream& source = *format->streams[stream];
    if (source.codecpar->sample_rate < kMinSourceRate) {
        return fail(
            Cause::unsupported,
            fmt::format(
                "{} has a sound of {} Hz, at which nothing is to be heard; save it with 8000 Hz or "
                "more.",
                file.string(),
                source.codecpar->sample_rate));
    }
    decoder.reset(avcodec_alloc_context3(codec));
    avcodec_parameters_to_context(decoder.get(), source.codecpar);
    decoder->pkt_timebase = source.time_base;
    decoder->thread_count = 1;
    if (avcodec_open2(decoder.get(), codec, nullptr) < 0) {
        return fail(
            Cause::unsupported,
            file.string() +
                " has no sound that can be decoded; save it as a WAV, MP3 or M4A file.");
    }
    frame.reset(av_frame_alloc());
    packet.reset(av_packet_alloc());
    return {};
}

double AudioReader::measureDuration() {
    const AVStream& source = *format->streams[stream];
    std::int64_t end = startOf(source);
    while (readPacket(*format, *packet)) {
        if (packet->stream_index == stream && packet->pts != AV_NOPTS_VALUE) {
            end = std::max(end, packet->pts + std::max<std::int64_t>(packet->duration, 0));
        }
        av_packet_unref(packet.get());
    }
    double seconds = static_cast<double>(end - startOf(source)) * av_q2d(source.time_base);
    // A header can know of padding that packets do not tell; it can only shorten the file.
    const bool isEstimate = format->duration_estimation_method == AVFMT_DURATION_FROM_BITRATE;
    if (source.duration != AV_NOPTS_VALUE && source.duration > 0 && !isEstimate) {
        const double told = static_cast<double>(source.duration) * av_q2d(source.time_base);
        seconds = std::min(seconds, told);
    }
    return std::clamp<double>(seconds, 0, kMaxSeconds);
}

void AudioReader::seek(double seconds) {
    const double start = std::clamp<double>(seconds, 0, kMaxSeconds);
    target = std::llround(start * rate);
    const AVStream& source = *format->streams[stream];
    const double early = std::max(start - kRunUpSeconds, 0.0);
    const auto offset = static_cast<std::int64_t>(std::floor(early / av_q2d(source.time_base)));
    rewindTo(startOf(source) + offset);
}

void AudioReader::rewindTo(std::int64_t timestamp) {
    if (av_seek_frame(format.get(), stream, timestamp, AVSEEK_FLAG_BACKWARD) < 0) {
        // Files without an index are read from the start.
        av_seek_frame(format.get(), stream, 0, AVSEEK_FLAG_BYTE);
    }
    avcodec_flush_buffers(decoder.get());
    converter.reset();
    pending.clear();
    pendingStart = 0;
    toSkip = 0;
    nextPlace = 0;
    isAligned = false;
    hasStumbled = false;
    hasGaps_ = false;
    isAtEnd = false;
}

std::size_t AudioReader::read(std::span<float> interleaved) {
    std::size_t filled = 0;
    const std::size_t wanted =
        interleaved.size() - interleaved.size() % static_cast<std::size_t>(channels);
    while (filled < wanted) {
        if (pendingStart == pending.size()) {
            if (isAtEnd)
                break;
            pending.clear();
            pendingStart = 0;
            decodeMore();
            continue;
        }
        const std::size_t count = std::min(wanted - filled, pending.size() - pendingStart);
        const auto from = pending.begin() + static_cast<std::ptrdiff_t>(pendingStart);
        std::copy_n(from, count, interleaved.begin() + static_cast<std::ptrdiff_t>(filled));
        pendingStart += count;
        filled += count;
    }
    return filled / static_cast<std::size_t>(channels);
}

/// Decodes until there are samples to read or the file ends.
void AudioReader::decodeMore() {
    while (pending.empty() && !isAtEnd) {
        if (avcodec_receive_frame(decoder.get(), frame.get()) >= 0) {
            takeFrame();
            continue;
        }
        if (readPacket(*format, *packet)) {
            // Before the place that is asked for, a decoder may lack what it builds on.
            if (packet->stream_index == stream &&
                avcodec_send_packet(decoder.get(), packet.get()) < 0 && isAligned && toSkip == 0)
                hasStumbled = true;
            av_packet_unref(packet.get());
            continue;
        }
        avcodec_send_packet(decoder.get(), nullptr);
        while (avcodec_receive_frame(decoder.get(), frame.get()) >= 0)
            takeFrame();
        if (converter)
            convert(nullptr);
        // Half a second is sound; less may be what other programs write behind it.
        const double missing = duration_ - static_cast<double>(nextPlace) / rate;
        hasGaps_ = hasGaps_ || (hasStumbled && missing > 0.5);
        isAtEnd = true;
    }
}

void AudioReader::takeFrame() {
    const bool isUsable =
        frame->nb_samples > 0 && frame->nb_samples <= kMaxFrameSamples &&
        frame->sample_rate >= kMinSourceRate && frame->sample_rate <= kMaxSourceRate &&
        frame->ch_layout.nb_channels > 0 && frame->ch_layout.nb_channels <= kMaxSourceChannels;
    if (isUsable && prepareConverter(*frame)) {
        if (!isAligned)
            alignToTarget(*frame);
        else
            bridgeGap(*frame);
        hasGaps_ = hasGaps_ || std::exchange(hasStumbled, false);
        convert(frame.get());
    }
    av_frame_unref(frame.get());
}

bool AudioReader::prepareConverter(const AVFrame& source) {
    const bool isSame = converter && sourceRate == source.sample_rate &&
                        sourceFormat == source.format &&
                        sourceChannels == source.ch_layout.nb_channels;
    if (isSame)
        return true;
    if (converter)
        convert(nullptr);
    AVChannelLayout layout{};
    if (source.ch_layout.order == AV_CHANNEL_ORDER_UNSPEC) {
        av_channel_layout_default(&layout, source.ch_layout.nb_channels);
    } else {
        av_channel_layout_copy(&layout, &source.ch_layout);
    }
    AVChannelLayout outLayout{};
    av_channel_layout_default(&outLayout, channels);
    SwrContext* made = nullptr;
    swr_alloc_set_opts2(
        &made,
        &outLayout,
        AV_SAMPLE_FMT_FLT,
        rate,
        &layout,
        static_cast<AVSampleFormat>(source.format),
        source.sample_rate,
        0,
        nullptr);
    if (channels == 1)
        swr_set_matrix(made, kFirstChannel.data(), source.ch_layout.nb_channels);
    else if (source.ch_layout.nb_channels == 1)
        swr_set_matrix(made, kBothSides.data(), 1);
    av_channel_layout_uninit(&layout);
    converter.reset(made);
    if (!converter || swr_init(converter.get()) < 0) {
        converter.reset();
        return false;
    }
    sourceRate = source.sample_rate;
    sourceFormat = source.format;
    sourceChannels = source.ch_layout.nb_channels;
    return true;
}

/// The position in the song, in frames; empty if the packet does not tell.
std::optional<std::int64_t> AudioReader::placeOf(const AVFrame& source) const {
    const AVStream& origin = *format->streams[stream];
    const std::int64_t pts = source.best_effort_timestamp;
    if (pts == AV_NOPTS_VALUE)
        return std::nullopt;
    const double seconds = static_cast<double>(pts - startOf(origin)) * av_q2d(origin.time_base);
    return std::llround(std::clamp<double>(seconds, 0, kMaxSeconds) * rate);
}

/// The position of the first frame after a seek decides how much is dropped, or how much silence is
/// inserted.
void AudioReader::alignToTarget(const AVFrame& first) {
    isAligned = true;
    // Unknown position: this happens only if a file is read from its start.
    const std::int64_t place = placeOf(first).value_or(0);
    nextPlace = place;
    toSkip = std::max<std::int64_t>(target - place, 0);
    const std::int64_t gap = std::clamp<std::int64_t>(place - target, 0, rate);
    pending.insert(pending.end(), static_cast<std::size_t>(gap * channels), 0.0F);
}

/// Fills the gap that lost or damaged packets leave before the next frame with silence.
void AudioReader::bridgeGap(const AVFrame& next) {
    const std::int64_t gap = placeOf(next).value_or(nextPlace) - nextPlace;
    if (gap < jitterIn(*format, rate))
        return;
    hasGaps_ = hasGaps_ || toSkip == 0;
    // Not from a buffer, because a damaged file can tell of a minute at each packet.
    const std::int64_t silent = std::min(gap, kMaxGap);
    const std::int64_t dropped = std::min(toSkip, silent);
    nextPlace += silent;
    toSkip -= dropped;
    pending.insert(pending.end(), static_cast<std::size_t>((silent - dropped) * channels), 0.0F);
}

/// Takes whole frames, but not those before the target.
void AudioReader::append(std::span<const float> samples) {
    const auto frames = static_cast<std::int64_t>(samples.size()) / channels;
    const auto dropped = std::min(toSkip, frames);
    nextPlace += frames;
    toSkip -= dropped;
    for (const float value : samples.subspan(static_cast<std::size_t>(dropped * channels)))
        pending.push_back(std::isfinite(value) ? std::clamp(value, -1.0F, 1.0F) : 0.0F);
}

/// Converts a frame, or flushes the converter if `source` is null.
void AudioReader::convert(const AVFrame* source) {
    const int inSamples = source != nullptr ? source->nb_samples : 0;
    const int room = swr_get_out_samples(converter.get(), inSamples);
    if (room <= 0)
        return;
    std::vector<float> converted(
        static_cast<std::size_t>(room) * static_cast<std::size_t>(channels));
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): the library takes bytes
    auto* out = reinterpret_cast<std::uint8_t*>(converted.data());
    const auto* const* in =
        source != nullptr ? const_cast<const std::uint8_t**>(source->extended_data) : nullptr;
    const int made =
        swr_convert(converter.get(), &out, room, const_cast<const std::uint8_t**>(in), inSamples);
    if (made <= 0)
        return;
    append(std::span(converted).first(
        static_cast<std::size_t>(made) * static_cast<std::size_t>(channels)));
}

} // namespace zelvo::media
