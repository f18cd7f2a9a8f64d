// SPDX-License-Identifier: MIT
#include "platform/media/VideoReader.h"

#include "platform/media/MediaFile.h"
#include "platform/media/VideoDecoder.h"
#include "platform/media/VideoPictures.h"

extern "C" {
#include <libavutil/pixdesc.h>
}

#include <algorithm>
#include <utility>

namespace zelvo::media {
namespace {

using foundation::Cause;
using foundation::fail;
using foundation::Result;

bool hasAlpha(const AVFrame& frame) {
    const AVPixFmtDescriptor* const format =
        av_pix_fmt_desc_get(static_cast<AVPixelFormat>(frame.format));
    return format != nullptr && (format->flags & AV_PIX_FMT_FLAG_ALPHA) != 0;
}

VideoPictures::Source sourceOf(const AVFrame& first, AVFormatContext& format, AVStream& stream) {
    const AVRational aspect = av_guess_sample_aspect_ratio(&format, &stream, nullptr);
    std::size_t bytes = 0;
    const std::uint8_t* const matrix =
        av_stream_get_side_data(&stream, AV_PKT_DATA_DISPLAYMATRIX, &bytes);
    const bool hasMatrix = matrix != nullptr && bytes >= 9 * sizeof(std::int32_t);
    return {
        .width = first.width,
        .height = first.height,
        .pixelAspect = aspect.num > 0 && aspect.den > 0 ? av_q2d(aspect) : 1.0,
        // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): the library keeps bytes
        .orientation = VideoOrientation::of(
            hasMatrix ? reinterpret_cast<const std::int32_t*>(matrix) : nullptr)};
}

} // namespace

struct VideoReader::State {
    State(VideoDecoder opened, VideoPictures converter, const VideoFormat& found)
        : decoder(std::move(opened))
        , pictures(std::move(converter))
        , format(found) {}

    VideoDecoder decoder;
    VideoPictures pictures;
    VideoFormat format;
    image::ImagePtr last; ///< the picture of lastIndex
    std::int64_t lastIndex = -1;
};

VideoReader::VideoReader(std::unique_ptr<State> opened)
    : state(std::move(opened)) {}

VideoReader::~VideoReader() = default;
VideoReader::VideoReader(VideoReader&& other) noexcept = default;
VideoReader& VideoReader::operator=(VideoReader&& other) noexcept = default;

bool isVideoFile(const std::filesystem::path& file) {
    const auto opened = openMediaFile(file);
    return opened && videoStreamOf(**opened).has_value();
}

Result<VideoReader> VideoReader::open(const std::filesystem::path& file) {
    auto opened = openMediaFile(file);
    if (!opened)
        return tl::unexpected(opened.error());
    AVFormatContext& format = **opened;
    const std::optional<int> stream = videoStreamOf(format);
    if (!stream)
        return fail(Cause::unsupported, file.string() + " holds no video.");
    const bool hasSound = av_find_best_stream(&format, AVMEDIA_TYPE_AUDIO, -1, -1, nullptr, 0) >= 0;
    auto decoder = VideoDecoder::open(std::move(*opened), *stream, file);
    if (!decoder)
        return tl::unexpected(decoder.error());
    const AVFrame* const first = decoder->frameAt(0);
    if (first == nullptr || first->width <= 0 || first->height <= 0) {
        return fail(
            Cause::malformed,
            file.string() + " is damaged: no picture of its video can be decoded.");
    }
    VideoPictures pictures(sourceOf(*first, format, *format.streams[*stream]), kMaxShownSide);
    const VideoTimeline& timeline = decoder->timeline();
    VideoFormat found{
        .width = pictures.width(),
        .height = pictures.height(),
        .duration = std::min<double>(timeline.duration(), kMaxSeconds),
        .hasAlpha = hasAlpha(*first),
        .hasSound = hasSound};
    if (found.duration > 0)
        found.framesPerSecond = static_cast<double>(timeline.count()) / found.duration;
    VideoReader reader(std::make_unique<State>(std::move(*decoder), std::move(pictures), found));
    if (reader.picture(0) == nullptr)
        return fail(
            Cause::unsupported,
            file.string() + " holds pictures of an unknown format; save it as an MP4 file.");
    return reader;
}

const VideoFormat& VideoReader::format() const {
    return state->format;
}

std::size_t VideoReader::indexAt(double seconds) const {
    return state->decoder.timeline().indexAt(seconds);
}

std::size_t VideoReader::count() const {
    return state->decoder.timeline().count();
}

image::ImagePtr VideoReader::picture(std::size_t index) {
    const std::size_t wanted = std::min(index, count() - 1);
    if (state->last && state->lastIndex == static_cast<std::int64_t>(wanted))
        return state->last;
    const AVFrame* const frame = state->decoder.frameAt(wanted);
    image::ImagePtr made = frame != nullptr ? state->pictures.picture(*frame) : nullptr;
    if (made)
        state->last = std::move(made);
    state->lastIndex = static_cast<std::int64_t>(wanted);
    return state->last;
}

} // namespace zelvo::media
