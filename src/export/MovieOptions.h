// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/media/VideoSettings.h"
#include "platform/render/SCNRenderer.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace zelvo::movie {

/// Looks at the pictures of an export as they are finished, in their order.
struct FrameTap {
    /// Whether that frame (of the movie, below 0 in the count-in) is to be drawn for the tap. Asked
    /// once a frame.
    std::function<bool(int frame)> wants;
    /// The picture, 4 bytes a pixel, valid during the call. An error ends the export with it.
    std::function<foundation::Result<void>(int frame, const render::FrameView& picture)> take;
    /// How many it wants, for the progress of an export that draws nothing else.
    int count = 0;
};

/// How the next export is made.
struct MovieOptions {
    render::Size renderSize{1920, 1080}; ///< of the movie; even
    double oversampling = 1.5;           ///< drawn size over renderSize, in place of antialiasing

    /// Absent: HEVC where the machine has an encoder for it in hardware, else H.264.
    std::optional<media::VideoCodec> codec;

    /// Where the finished movie goes instead of "Movie.mov" and the photo library.
    std::optional<std::filesystem::path> output;

    /// False: no movie is made, only the tap's pictures are drawn.
    bool writesMovie = true;

    std::optional<FrameTap> tap;
};

struct MovieProgress {
    int framesDone = 0;
    int framesTotal = 0; ///< to be drawn, those cut off at the end included
};

/// What an export has left behind.
struct MovieOutcome {
    int frames = 0;              ///< drawn
    std::filesystem::path movie; ///< empty if none was to be made
    std::optional<std::filesystem::path>
        savedCopy;            ///< in the photo library; absent if that failed or was not asked
    std::string saveFailure;  ///< why it could not be saved there; empty if it was or need not be
    std::string musicFailure; ///< why the movie is silent; empty if it is not or need not be
};

/// Where an export's time went, milliseconds in all. Encoding runs beside the rest.
struct MovieTimings {
    render::FrameTimes frames;
    double encodeMs = 0;
};

} // namespace zelvo::movie
