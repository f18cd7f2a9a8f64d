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

/// One stream of a file. Holds the file's name; the file is not open.
struct AVAssetTrack {
    std::filesystem::path file;
    int trackID = 0; ///< starts at 1, in the file's order
    MediaType mediaType = MediaType::video;
    CMTime duration;               ///< in naturalTimeScale
    double nominalFrameRate = 0.0; ///< frames divided by duration; 0 for sound
    std::int32_t naturalTimeScale = 1;
    int width = 0; ///< for video
    int height = 0;
};

/// Describes the content of a sound or movie file. Reads only the file's header.
class AVAsset {
public:
    /// Errors: `notFound`, `unreadable`, `malformed`, `tooLarge`.
    [[nodiscard]] static foundation::Result<AVAsset> open(const std::filesystem::path& file);

    /// The duration of the longest track.
    [[nodiscard]] CMTime duration() const;

    [[nodiscard]] std::vector<AVAssetTrack> tracksWithMediaType(MediaType type) const;

private:
    std::vector<AVAssetTrack> tracks;
};

/// Checks that the file has sound that can be decoded. Errors of `open`, and `unsupported`.
[[nodiscard]] foundation::Result<void> checkSound(const std::filesystem::path& file);

} // namespace zelvo::media
