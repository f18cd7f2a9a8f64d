// SPDX-License-Identifier: MIT
#pragma once

#include "export/MovieWriterOwner.h"
#include "platform/foundation/Result.h"
#include "platform/media/AVAssetExportSession.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

namespace zelvo::movie {

/// Frames that are cut off at the end of the raw movie.
inline constexpr int kCutFrames = 3;

struct MovieMux {
    std::unique_ptr<media::AVAssetExportSession> session;
    std::string musicFailure; ///< why the movie will be silent; empty if it is not or need not be
};

/// Puts the raw video, less its last three frames, together with the music. A song that cannot be
/// read leaves the movie silent. Errors: the raw video is no video.
[[nodiscard]] foundation::Result<MovieMux> makeExportSession(
    const std::filesystem::path& rawMovie,
    const std::filesystem::path& output,
    const std::optional<MusicStretch>& music);

/// The volume over the movie's time. Where the two fades would overlap, the fade-in falls away.
[[nodiscard]] media::AVMutableAudioMixInputParameters
fadesOf(const MusicStretch& music, int trackID);

} // namespace zelvo::movie
