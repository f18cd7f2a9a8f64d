// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/media/Container.h"
#include "platform/media/VideoSettings.h"
#include "platform/render/SCNRenderer.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace zelvo::movie {

/// Receives the pictures of an export in order, as they are finished.
struct FrameTap {
    /// Whether this frame (of the movie; negative in the count-in) is wanted. Asked once for each
    /// frame.
    std::function<bool(int frame)> wants;
    /// Receives the picture, 4 bytes a pixel, valid during the call. An error ends the export with
    /// that error.
    std::function<foundation::Result<void>(int frame, const render::FrameView& picture)> take;
    /// Number of wanted frames; for the progress of an export that draws nothing else.
    int count = 0;
};

/// Where a movie goes in the photo library.
struct LibraryPlace {
    std::filesystem::path folder{};   ///< empty: the user's videos folder
    std::string name = "Zelvo Movie"; ///< without ending; a taken name gets a number
};

/// The settings of the next export.
struct MovieOptions {
    render::Size renderSize{1920, 1080}; ///< of the movie; both sides even
    render::DrawQuality quality{};
    std::uint32_t leftOut = 0; ///< as in render::FrameRequest; if not 0, the movie has alpha

    /// As for media::codecFor.
    std::optional<media::VideoCodec> codec;

    /// The path of the finished movie; its ending says the container. Empty: "Movie.mov" and a copy
    /// in the photo library.
    std::optional<std::filesystem::path> output;

    media::Container container = media::Container::quickTime; ///< of a movie without `output`
    LibraryPlace copyPlace;                                   ///< of its copy

    /// False: only the tap's pictures are drawn.
    bool writesMovie = true;

    std::optional<FrameTap> tap;
};

struct MovieProgress {
    int framesDone = 0;
    int framesTotal = 0; ///< to be drawn, including those cut off at the end
};

/// The result of an export.
struct MovieOutcome {
    int frames = 0;                ///< number of drawn frames
    std::filesystem::path movie{}; ///< empty if no movie was to be made
    /// In the photo library; empty if it was not requested or failed.
    std::optional<std::filesystem::path> savedCopy{};
    /// why it is not in the photo library; empty if it is, or if it should not be
    std::string saveFailure{};
    /// why the movie is silent; empty if it is not, or if there is no music
    std::string musicFailure{};
    /// that parts of the song could not be decoded; empty if all could
    std::string musicDamage{};
};

/// How an export's time was spent, in milliseconds. Encoding runs in parallel.
struct MovieTimings {
    render::FrameTimes frames;
    double encodeMs = 0;
};

} // namespace zelvo::movie
