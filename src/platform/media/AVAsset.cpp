// SPDX-License-Identifier: MIT
#include "platform/media/AVAsset.h"

#include "platform/media/AudioReader.h"
#include "platform/media/MediaFile.h"

#include <algorithm>
#include <iterator>
#include <optional>

namespace zelvo::media {
namespace {

/// Longer files are damaged or not meant for a short movie.

CMTime durationOf(const AVFormatContext& format, const AVStream& stream, std::int32_t timescale) {
    AVRational unit = stream.time_base;
    std::int64_t length = stream.duration;
    if (length == AV_NOPTS_VALUE) {
        unit = AVRational{1, AV_TIME_BASE};
        length = format.duration == AV_NOPTS_VALUE ? 0 : format.duration;
    }
    const std::int64_t scaled = av_rescale_q(length, unit, {1, timescale});
    return {std::clamp<std::int64_t>(scaled, 0, kMaxSeconds * timescale), timescale};
}

std::optional<AVAssetTrack> describe(const AVFormatContext& format, const AVStream& stream) {
    const AVCodecParameters& codec = *stream.codecpar;
    // A cover picture in a song is a video stream with one frame; it does not count as video.
    const bool isCover = (stream.disposition & AV_DISPOSITION_ATTACHED_PIC) != 0;
    const bool isVideo = codec.codec_type == AVMEDIA_TYPE_VIDEO && !isCover;
    if (!isVideo && codec.codec_type != AVMEDIA_TYPE_AUDIO)
        return std::nullopt;
    AVAssetTrack track;
    track.trackID = stream.index + 1;
    track.mediaType = isVideo ? MediaType::video : MediaType::audio;
    const AVRational unit = stream.time_base;
    track.naturalTimeScale = unit.num == 1 && unit.den > 0 ? unit.den : AV_TIME_BASE;
    track.duration = durationOf(format, stream, track.naturalTimeScale);
    if (isVideo && stream.nb_frames > 0 && track.duration.value > 0) {
        track.nominalFrameRate = static_cast<double>(stream.nb_frames) / track.duration.seconds();
    } else if (isVideo && stream.avg_frame_rate.den > 0) {
        track.nominalFrameRate = av_q2d(stream.avg_frame_rate);
    }
    track.width = isVideo ? codec.width : 0;
    track.height = isVideo ? codec.height : 0;
    return track;
}

} // namespace

foundation::Result<AVAsset> AVAsset::open(const std::filesystem::path& file) {
    const auto format = openMediaFile(file);
    if (!format)
        return tl::unexpected(format.error());
    AVAsset asset;
    for (unsigned i = 0; i < (*format)->nb_streams; ++i) {
        auto track = describe(**format, *(*format)->streams[i]);
        if (!track)
            continue;
        track->file = file;
        asset.tracks.push_back(*std::move(track));
    }
    return asset;
}

CMTime AVAsset::duration() const {
    CMTime longest;
    for (const AVAssetTrack& track : tracks)
        longest = std::max(longest, track.duration);
    return longest;
}

std::vector<AVAssetTrack> AVAsset::tracksWithMediaType(MediaType type) const {
    std::vector<AVAssetTrack> found;
    std::ranges::copy_if(tracks, std::back_inserter(found), [type](const AVAssetTrack& track) {
        return track.mediaType == type;
    });
    return found;
}

foundation::Result<void> checkSound(const std::filesystem::path& file) {
    return AudioReader::open(file).map([](const AudioReader&) {});
}

} // namespace zelvo::media
