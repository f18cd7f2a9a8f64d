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

/// Number of frames cut off at the end of the raw movie.
inline constexpr int kCutFrames = 3;

/// The number of frames of a movie of this duration (seconds).
[[nodiscard]] int framesIn(double duration);

struct MovieMux {
    std::unique_ptr<media::AVAssetExportSession> session;
    /// why the movie will be silent; empty if it is not, or if there is no music
    std::string musicFailure;
    std::filesystem::path song; ///< empty if there is no music
};

/// Joins the raw video, without its last three frames, and the music. If the song cannot be read,
/// the movie is silent. Error: the raw video cannot be read.
[[nodiscard]] foundation::Result<MovieMux> makeExportSession(
    const std::filesystem::path& rawMovie,
    const std::filesystem::path& output,
    const std::optional<MusicStretch>& music);

/// The volume over the movie's time. If the two fades would overlap, there is no fade-in.
[[nodiscard]] media::AVMutableAudioMixInputParameters
fadesOf(const MusicStretch& music, int trackID);

} // namespace zelvo::movie
