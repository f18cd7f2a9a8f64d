// SPDX-License-Identifier: MIT
#include "platform/media/AVMutableComposition.h"

#include "platform/foundation/Check.h"

#include <algorithm>

namespace zelvo::media {

using foundation::Cause;
using foundation::fail;
using foundation::Result;

Result<void> AVMutableCompositionTrack::insertTimeRange(
    const CMTimeRange& range, const AVAssetTrack& source, CMTime at) {
    CHECK(!segment_, "track {} has its stretch", trackID_);
    const CMTime zero;
    if (source.mediaType != mediaType_) {
        return fail(Cause::unsupported, "Sound cannot stand in a video track, nor video in sound.");
    }
    if (range.start < zero || range.duration <= zero || at < zero) {
        return fail(Cause::unsupported, "The stretch to be inserted is empty or out of range.");
    }
    segment_ = Segment{source, range, at};
    return {};
}

AVMutableCompositionTrack&
AVMutableComposition::addMutableTrack(MediaType type, int preferredTrackID) {
    int identifier = preferredTrackID;
    if (identifier == 0) {
        identifier = 1;
        for (const auto& track : tracks)
            identifier = std::max(identifier, track.trackID() + 1);
    }
    return tracks.emplace_back(type, identifier);
}

const AVMutableCompositionTrack* AVMutableComposition::firstTrack(MediaType type) const {
    const auto found = std::ranges::find(tracks, type, &AVMutableCompositionTrack::mediaType);
    return found == tracks.end() ? nullptr : &*found;
}

} // namespace zelvo::media
