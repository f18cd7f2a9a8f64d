// SPDX-License-Identifier: MIT
#include "export/MovieMux.h"

#include "platform/foundation/Check.h"
#include "platform/media/AVAsset.h"
#include "shared/FrameClock.h"
#include "shared/MusicFades.h"

#include <algorithm>
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

/// The sound track of the song. Error: it has none, or none that can be decoded.
Result<media::AVAssetTrack> songTrack(const std::filesystem::path& file) {
    const auto song = media::AVAsset::open(file);
    if (!song)
        return tl::unexpected(song.error());
    const auto track = firstTrack(*song, MediaType::audio);
    if (!track)
        return foundation::fail(Cause::unsupported, file.string() + " has no sound.");
    if (const auto decoded = media::checkSound(file); !decoded)
        return tl::unexpected(decoded.error());
    return *track;
}

/// Inserts the music into the composition. Returns the identifier of its track.
Result<int> insertMusic(media::AVMutableComposition& composition, const MusicStretch& music) {
    const auto track = songTrack(music.file);
    if (!track)
        return tl::unexpected(track.error());
    auto& audio = composition.addMutableTrack(MediaType::audio, 0);
    // A stretch that is longer than its song begins before it; the song then sounds from its start.
    const double songStart = std::max(music.audioIn, 0.0);
    const CMTimeRange stretch{sixtieths(songStart), sixtieths(music.audioEnd - music.audioIn)};
    const auto inserted = audio.insertTimeRange(stretch, *track, sixtieths(music.audioPreRoll));
    if (!inserted)
        return tl::unexpected(inserted.error());
    return audio.trackID();
}

} // namespace

int framesIn(double duration) {
    return FrameClock::framesDrawnIn(duration) - kCutFrames;
}

media::AVMutableAudioMixInputParameters fadesOf(const MusicStretch& music, int trackID) {
    auto volumes = shared::volumesOf(
        {.begin = music.audioPreRoll,
         .end = music.audioPreRoll + music.audioEnd - music.audioIn,
         .fadeInDuration = music.fadeInDuration,
         .fadeOutDuration = music.fadeOutDuration,
         .fadeOutBeginDelay = music.fadeOutBeginDelay,
         .fadesIn = music.fadesIn,
         .fadesOut = music.fadesOut});
    volumes.setTrackID(trackID);
    return volumes;
}

Result<MovieMux> makeExportSession(
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

    // In sixtieths, because a WebM file rounds its length to milliseconds.
    const CMTime cut = sixtieths(kCutFrames / video->nominalFrameRate);
    const CMTimeRange whole{sixtieths(0), sixtieths(asset->duration().seconds()) - cut};
    media::AVMutableComposition composition;
    const auto inserted =
        composition.addMutableTrack(MediaType::video, 0).insertTimeRange(whole, *video, {0, 1});
    if (!inserted)
        return tl::unexpected(inserted.error().in("the raw movie"));
    MovieMux mux;
    std::optional<media::AVMutableAudioMix> volumes;
    if (music) {
        mux.song = music->file;
        const auto track = insertMusic(composition, *music);
        if (!track)
            mux.musicFailure = track.error().message;
        else if (music->fadesIn || music->fadesOut)
            volumes = media::AVMutableAudioMix{{fadesOf(*music, *track)}};
    }
    mux.session = std::make_unique<media::AVAssetExportSession>(std::move(composition));
    mux.session->outputURL = output;
    mux.session->timeRange = whole;
    mux.session->shouldOptimizeForNetworkUse = true;
    mux.session->audioMix = volumes;
    return mux;
}

} // namespace zelvo::movie
