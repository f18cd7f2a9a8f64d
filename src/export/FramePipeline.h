// SPDX-License-Identifier: MIT
#pragma once

#include "export/FrameSource.h"

#include <deque>
#include <functional>

namespace zelvo::movie {

/// Which frame a picture is, and who has asked for it.
struct FrameStamp {
    int frame = 0; ///< of the movie; below 0 in the count-in
    bool isForTap = false;
    bool isForMovie = false;
};

/// Keeps as many frames under way as the source allows: a frame comes out when the one three
/// further on goes in.
class FramePipeline {
public:
    using Taker =
        std::function<foundation::Result<void>(const render::FrameView&, const FrameStamp&)>;

    FramePipeline(FrameSource& frames, Taker frameTaker)
        : source(frames)
        , taker(std::move(frameTaker)) {}

    /// Starts a frame, after handing on the oldest one where there is no room. Errors are the
    /// taker's.
    [[nodiscard]] foundation::Result<void>
    submit(const render::FrameRequest& request, const FrameStamp& stamp);

    /// Hands on all that is under way.
    [[nodiscard]] foundation::Result<void> drain();

    /// Takes what is under way from the source and drops it.
    void discard();

private:
    [[nodiscard]] foundation::Result<void> handOnOldest();

    FrameSource& source;
    Taker taker;
    std::deque<FrameStamp> stamps; ///< of the frames under way, oldest first
};

} // namespace zelvo::movie
