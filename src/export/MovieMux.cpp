// SPDX-License-Identifier: MIT
#include "export/MovieMux.h"

#include "platform/foundation/Check.h"
#include "platform/foundation/Console.h"
#include "platform/media/AVAsset.h"
#include "shared/FrameClock.h"

#include <fmt/format.h>

#include <cmath>

namespace zelvo::movie {

namespace {

using foundation::Cause;
using foundation::Result;
using media::CMTime;
using media::CMTimeRange;
using media::MediaType;
using shared::FrameClock;

CMTime sixtieths(double seconds) {
    return FrameClock::presentationTime(FrameClock::nearestFrame(seconds));
}

std::optional<media::AVAssetTrack> firstTrack(const media::AVAsset& asset, MediaType type) {
    const auto tracks = asset.tracksWithMediaType(type);
    if (tracks.empty())
        return std::nullopt;
    return tracks.front();
}

/// The sound track of the song; absent where there is none to be had.
std::optional<media::AVAssetTrack> songTrack(const std::optional<MusicStretch>& music) {
    if (!music)
        return std::nullopt;
    const auto song = media::AVAsset::open(music->file);
    if (!song) {
        foundation::logLine(fmt::format("the movie stays silent: {}", song.error().message));
        return std::nullopt;
    }
    auto track = firstTrack(*song, MediaType::audio);
    if (!track) {
        foundation::logLine(
            fmt::format("the movie stays silent: {} has no sound", music->file.string()));
    }
    return track;
}

/// Puts the stretch of the song into the composition; the identifier of its track, or 0 for
/// silence.
Result<int>
insertMusic(media::AVMutableComposition& composition, const std::optional<MusicStretch>& music) {
    const auto track = songTrack(music);
    if (!track)
        return 0;
    auto& audio = composition.addMutableTrack(MediaType::audio, 0);
    const CMTimeRange stretch{
        sixtieths(music->audioIn), sixtieths(music->audioEnd - music->audioIn)};
    const auto inserted = audio.insertTimeRange(stretch, *track, sixtieths(music->audioPreRoll));
    if (!inserted)
        return tl::unexpected(inserted.error().in("the music"));
    return audio.trackID();
}

} // namespace

media::AVMutableAudioMixInputParameters fadesOf(const MusicStretch& music, int trackID) {
    media::AVMutableAudioMixInputParameters volumes;
    volumes.setTrackID(trackID);
    volumes.setVolume(1.0, sixtieths(0));
    const double fadeOutStart = music.audioPreRoll + music.audioEnd - music.audioIn -
                                music.fadeOutDuration - music.fadeOutBeginDelay;
    const double fadeInEnd = music.audioPreRoll + music.fadeInDuration;
    if (music.fadesIn && (!music.fadesOut || fadeOutStart >= fadeInEnd)) {
        volumes.setVolume(0.0, sixtieths(0));
        volumes.setVolumeRamp(
            0.0, 1.0, {sixtieths(music.audioPreRoll), sixtieths(music.fadeInDuration)});
    }
    if (music.fadesOut) {
        volumes.setVolumeRamp(
            1.0, 0.0, {sixtieths(fadeOutStart), sixtieths(music.fadeOutDuration)});
    }
    return volumes;
}

Result<std::unique_ptr<media::AVAssetExportSession>> makeExportSession(
    const std::filesystem::path& rawMovie,
    const std::filesystem::path& output,
    const std::optional<MusicStretch>& music) {
    const auto asset = media::AVAsset::open(rawMovie);
    if (!asset)
        return tl::unexpected(asset.error());
    const auto video = firstTrack(*asset, MediaType::video);
    if (!video)
        return foundation::fail(Cause::malformed, "the raw movie holds no video");
    CHECK(video->nominalFrameRate > 0, "the raw movie has no frame rate");

    const CMTime cut =
        CMTime::makeWithSeconds(kCutFrames / video->nominalFrameRate, video->naturalTimeScale);
    const CMTimeRange whole{
        {0, video->naturalTimeScale},
        asset->duration() - cut
    };
    media::AVMutableComposition composition;
    const auto inserted =
        composition.addMutableTrack(MediaType::video, 0).insertTimeRange(whole, *video, {0, 1});
    if (!inserted)
        return tl::unexpected(inserted.error().in("the raw movie"));
    const auto audioTrack = insertMusic(composition, music);
    if (!audioTrack)
        return tl::unexpected(audioTrack.error());

    auto session = std::make_unique<media::AVAssetExportSession>(std::move(composition));
    session->outputURL = output;
    session->timeRange = whole;
    session->shouldOptimizeForNetworkUse = true;
    if (*audioTrack != 0 && (music->fadesIn || music->fadesOut)) {
        session->audioMix = media::AVMutableAudioMix{{fadesOf(*music, *audioTrack)}};
    }
    return session;
}

} // namespace zelvo::movie
