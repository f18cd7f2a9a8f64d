// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/media/CMTime.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace zelvo::media {

enum class MediaType { video, audio };

/// One stream of a file. It keeps the file's name, not the file.
struct AVAssetTrack {
    std::filesystem::path file;
    int trackID = 0; ///< from 1, in the file's order
    MediaType mediaType = MediaType::video;
    CMTime duration;               ///< in naturalTimeScale
    double nominalFrameRate = 0.0; ///< frames over duration; 0 for sound
    std::int32_t naturalTimeScale = 1;
    int width = 0; ///< of a video
    int height = 0;
};

/// What a sound or movie file holds. Reads the file's head only.
class AVAsset {
public:
    /// notFound, unreadable, malformed or tooLarge, with a sentence.
    [[nodiscard]] static foundation::Result<AVAsset> open(const std::filesystem::path& file);

    /// The longest track's duration.
    [[nodiscard]] CMTime duration() const;

    [[nodiscard]] std::vector<AVAssetTrack> tracksWithMediaType(MediaType type) const;

private:
    std::vector<AVAssetTrack> tracks;
};

/// Whether there is sound in the file that can be decoded. Errors of the file.
[[nodiscard]] foundation::Result<void> checkSound(const std::filesystem::path& file);

} // namespace zelvo::media
