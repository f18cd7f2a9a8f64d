// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/media/AVAsset.h"
#include "platform/media/CMTime.h"

#include <deque>
#include <optional>

namespace zelvo::media {

/// One track of a composition: a stretch of one source track, placed in time.
class AVMutableCompositionTrack {
public:
    struct Segment {
        AVAssetTrack source;
        CMTimeRange range; ///< of the source's time
        CMTime at;         ///< where it begins in the composition
    };

    AVMutableCompositionTrack(MediaType type, int identifier)
        : mediaType_(type)
        , trackID_(identifier) {}

    [[nodiscard]] int trackID() const { return trackID_; }

    [[nodiscard]] MediaType mediaType() const { return mediaType_; }

    /// Once a track. unsupported if the source is of another type, or the range is empty or begins
    /// below 0.
    [[nodiscard]] foundation::Result<void>
    insertTimeRange(const CMTimeRange& range, const AVAssetTrack& source, CMTime at);

    [[nodiscard]] const std::optional<Segment>& segment() const { return segment_; }

private:
    MediaType mediaType_;
    int trackID_;
    std::optional<Segment> segment_;
};

/// Stretches of files put together in time, to be exported by AVAssetExportSession.
class AVMutableComposition {
public:
    /// An identifier of 0 lets the composition choose the next free one. The reference stays good.
    AVMutableCompositionTrack& addMutableTrack(MediaType type, int preferredTrackID);

    /// The first track of the type; null if there is none.
    [[nodiscard]] const AVMutableCompositionTrack* firstTrack(MediaType type) const;

private:
    std::deque<AVMutableCompositionTrack> tracks;
};

} // namespace zelvo::media
