// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/media/AVAsset.h"
#include "platform/media/CMTime.h"

#include <deque>
#include <optional>

namespace zelvo::media {

/// A track of a composition: a part of one source track, placed in time.
class AVMutableCompositionTrack {
public:
    struct Segment {
        AVAssetTrack source;
        CMTimeRange range; ///< in the source's time
        CMTime at;         ///< start in the composition
    };

    AVMutableCompositionTrack(MediaType type, int identifier)
        : mediaType_(type)
        , trackID_(identifier) {}

    [[nodiscard]] int trackID() const { return trackID_; }

    [[nodiscard]] MediaType mediaType() const { return mediaType_; }

    /// Can be called once for each track. Error: `unsupported` if the source has another type, or
    /// if the range is empty or begins below 0.
    [[nodiscard]] foundation::Result<void>
    insertTimeRange(const CMTimeRange& range, const AVAssetTrack& source, CMTime at);

    [[nodiscard]] const std::optional<Segment>& segment() const { return segment_; }

private:
    MediaType mediaType_;
    int trackID_;
    std::optional<Segment> segment_;
};

/// Parts of files put together in time. AVAssetExportSession exports it.
class AVMutableComposition {
public:
    /// With an identifier of 0 the next free one is used. The reference stays valid.
    AVMutableCompositionTrack& addMutableTrack(MediaType type, int preferredTrackID);

    /// The first track of this type; null if there is none.
    [[nodiscard]] const AVMutableCompositionTrack* firstTrack(MediaType type) const;

private:
    std::deque<AVMutableCompositionTrack> tracks;
};

} // namespace zelvo::media
