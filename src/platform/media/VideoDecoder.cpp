// SPDX-License-Identifier: MIT
#include "platform/media/VideoDecoder.h"

#include "platform/media/MediaFile.h"
#include "platform/media/VideoReader.h"

#include <fmt/format.h>

#include <algorithm>
#include <string_view>
#include <thread>
#include <utility>

namespace zelvo::media {
namespace {

using foundation::Cause;
using foundation::fail;
using foundation::Result;

constexpr int kMaxThreads = 4;
constexpr std::size_t kNear = 12; ///< so many pictures ahead, decoding on is as fast as seeking

std::optional<std::int64_t> known(std::int64_t time) {
    return time == AV_NOPTS_VALUE ? std::nullopt : std::optional(time);
}

/// The usual decoders of VP8 and VP9 leave the alpha out.
const AVCodec* decoderWithAlpha(const AVStream& stream) {
    if (!hasAlphaBeside(stream))
        return nullptr;
    switch (stream.codecpar->codec_id) {
    case AV_CODEC_ID_VP8:
        return avcodec_find_decoder_by_name("libvpx");
    case AV_CODEC_ID_VP9:
        return avcodec_find_decoder_by_name("libvpx-vp9");
    default:
        return nullptr;
    }
}

const AVCodec* decoderOf(const AVStream& stream) {
    if (const AVCodec* const found = decoderWithAlpha(stream))
        return found;
    return avcodec_find_decoder(stream.codecpar->codec_id);
}

/// Matroska's index holds the times of showing, other indexes those of decoding.
bool seeksByPresentation(const AVFormatContext& format) {
    return std::string_view(format.iformat->name).starts_with("matroska");
}

Result<void> checkSize(const AVCodecParameters& video, const std::filesystem::path& name) {
    const auto pixels = std::int64_t{video.width} * video.height;
    if (std::max(video.width, video.height) <= VideoReader::kMaxSide &&
        pixels <= VideoReader::kMaxPixels)
        return {};
    return fail(
        Cause::tooLarge,
        fmt::format(
            "{} has pictures of {} x {}, which is too large; make a smaller copy of it.",
            name.string(),
            video.width,
            video.height));
}

tl::unexpected<foundation::Error> cannotDecode(const std::filesystem::path& name) {
    return fail(
        Cause::unsupported,
        name.string() + " holds a video that cannot be decoded; save it as an MP4 or WebM file.");
}

} // namespace

std::optional<int> videoStreamOf(AVFormatContext& format) {
    constexpr int kPictures =
        AV_DISPOSITION_ATTACHED_PIC | AV_DISPOSITION_TIMED_THUMBNAILS | AV_DISPOSITION_STILL_IMAGE;
    const auto isVideo = [&format](int index) {
        const AVStream& stream = *format.streams[index];
        return stream.codecpar->codec_type == AVMEDIA_TYPE_VIDEO &&
               (stream.disposition & kPictures) == 0;
    };
    const int best = av_find_best_stream(&format, AVMEDIA_TYPE_VIDEO, -1, -1, nullptr, 0);
    if (best >= 0 && isVideo(best))
        return best;
    for (int i = 0; i < static_cast<int>(format.nb_streams); ++i) {
        if (isVideo(i))
            return i;
    }
    return std::nullopt;
}

VideoDecoder::VideoDecoder(FFmpegPtr<AVFormatContext> file, int number)
    : format_(std::move(file))
    , streamIndex(number)
    , timeline_(av_q2d(format_->streams[number]->time_base))
    , packet(av_packet_alloc())
    , shown(av_frame_alloc())
    , next(av_frame_alloc()) {}

Result<VideoDecoder>
VideoDecoder::open(FFmpegPtr<AVFormatContext> file, int stream, const std::filesystem::path& name) {
    VideoDecoder decoder(std::move(file), stream);
    if (auto opened = decoder.openCodec(name); !opened)
        return tl::unexpected(opened.error());
    readOnlyStream(*decoder.format_, stream);
    if (!decoder.readTimeline())
        return cannotDecode(name);
    decoder.rewind(std::nullopt);
    return decoder;
}

Result<void> VideoDecoder::openCodec(const std::filesystem::path& name) {
    const AVStream& source = stream();
    if (auto checked = checkSize(*source.codecpar, name); !checked)
        return checked;
    const AVCodec* const decoder = decoderOf(source);
    if (decoder == nullptr || source.time_base.num <= 0 || source.time_base.den <= 0)
        return cannotDecode(name);
    codec.reset(avcodec_alloc_context3(decoder));
    avcodec_parameters_to_context(codec.get(), source.codecpar);
    codec->pkt_timebase = source.time_base;
    codec->max_pixels = VideoReader::kMaxPixels;
    const auto cores = static_cast<int>(std::thread::hardware_concurrency());
    codec->thread_count = std::clamp(cores, 1, kMaxThreads);
    if (avcodec_open2(codec.get(), decoder, nullptr) < 0)
        return cannotDecode(name);
    return {};
}

bool VideoDecoder::readTimeline() {
    while (readPacket(*format_, *packet)) {
        // An edit list leaves out some pictures that others are built on.
        const bool isShown = (packet->flags & AV_PKT_FLAG_DISCARD) == 0;
        if (packet->stream_index == streamIndex && isShown) {
            timeline_.add(
                {.pts = known(packet->pts),
                 .dts = known(packet->dts),
                 .duration = packet->duration,
                 .isKey = (packet->flags & AV_PKT_FLAG_KEY) != 0});
        }
        av_packet_unref(packet.get());
    }
    return timeline_.finish();
}

const AVFrame* VideoDecoder::frameAt(std::size_t index) {
    const std::int64_t time = timeline_.timeOf(index);
    if (mustRewindFor(index))
        rewind(timeline_.keyAtOrBefore(time));
    lastIndex = index;
    decodeUpTo(time);
    // The key picture may be shown later than it says, or may not be one: begin earlier.
    std::optional<VideoTimeline::Key> key = timeline_.keyAtOrBefore(time);
    while (!shownTime && key && !timeline_.mustBeCounted()) {
        key = timeline_.keyAtOrBefore(key->pts - 1);
        rewind(key);
        decodeUpTo(time);
    }
    if (shownTime)
        return shown.get();
    return nextTime ? next.get() : nullptr;
}

/// Whether to begin anew at a key picture, instead of decoding on.
bool VideoDecoder::mustRewindFor(std::size_t index) const {
    const std::int64_t time = timeline_.timeOf(index);
    if (!shownTime || *shownTime > time)
        return decoded > 0;
    if (timeline_.mustBeCounted() || index <= lastIndex + kNear)
        return false;
    const auto key = timeline_.keyAtOrBefore(time);
    return key && key->pts > *shownTime;
}

void VideoDecoder::rewind(std::optional<VideoTimeline::Key> key) {
    std::int64_t time = std::min<std::int64_t>(timeline_.timeOf(0), 0);
    if (key && !timeline_.mustBeCounted())
        time = seeksByPresentation(*format_) ? key->pts : key->dts;
    const bool hasMoved =
        av_seek_frame(format_.get(), streamIndex, time, AVSEEK_FLAG_BACKWARD) >= 0;
    // Files without an index are read from the start.
    if (!hasMoved)
        av_seek_frame(format_.get(), streamIndex, 0, AVSEEK_FLAG_BYTE);
    avcodec_flush_buffers(codec.get());
    shownTime.reset();
    nextTime.reset();
    decoded = 0;
    isAtEnd = false;
}

/// Afterwards `shown` is the last frame up to the time, and `next`, if it was needed, the one after.
void VideoDecoder::decodeUpTo(std::int64_t time) {
    while (!shownTime || *shownTime < time) {
        if (!nextTime && !receive())
            return;
        if (*nextTime > time)
            return;
        std::swap(shown, next);
        shownTime = std::exchange(nextTime, std::nullopt);
    }
}

/// Decodes one frame into `next`. False at the end of the file.
bool VideoDecoder::receive() {
    while (!isAtEnd) {
        const int got = avcodec_receive_frame(codec.get(), next.get());
        if (got >= 0) {
            nextTime = timeOf(*next);
            ++decoded;
            return true;
        }
        const bool isDone = got == AVERROR_EOF;
        if (!isDone && readPacket(*format_, *packet)) {
            // A packet that is damaged is left out; what can be decoded goes on.
            if (packet->stream_index == streamIndex)
                (void)avcodec_send_packet(codec.get(), packet.get());
            av_packet_unref(packet.get());
        } else {
            isAtEnd = isDone || avcodec_send_packet(codec.get(), nullptr) < 0;
        }
    }
    return false;
}

std::int64_t VideoDecoder::timeOf(const AVFrame& frame) {
    if (timeline_.mustBeCounted())
        return timeline_.timeOf(std::min(decoded, timeline_.count() - 1));
    return known(frame.best_effort_timestamp).value_or(shownTime.value_or(timeline_.timeOf(0)));
}

} // namespace zelvo::media
