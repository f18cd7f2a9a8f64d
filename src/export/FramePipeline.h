// SPDX-License-Identifier: MIT
#pragma once

#include "export/FrameSource.h"

#include <deque>
#include <functional>

namespace zelvo::movie {

/// The frame of a picture, and who asked for it.
struct FrameStamp {
    int frame = 0; ///< of the movie; negative in the count-in
    bool isForTap = false;
    bool isForMovie = false;
};

/// Keeps as many frames in flight as the source allows. If it allows two, a frame comes out when the
/// second one after it goes in.
class FramePipeline {
public:
    using Taker =
        std::function<foundation::Result<void>(const render::FrameView&, const FrameStamp&)>;

    FramePipeline(FrameSource& frames, Taker frameTaker)
        : source(frames)
        , taker(std::move(frameTaker)) {}

    /// Starts a frame; if there is no room, the oldest one is taken out and passed on first.
    /// Errors: those of the taker.
    [[nodiscard]] foundation::Result<void>
    submit(const render::FrameRequest& request, const FrameStamp& stamp);

    /// Takes out and passes on all frames in flight.
    [[nodiscard]] foundation::Result<void> drain();

    /// Takes out all frames in flight and drops them.
    void discard();

private:
    [[nodiscard]] foundation::Result<void> handOnOldest();

    FrameSource& source;
    Taker taker;
    std::deque<FrameStamp> stamps; ///< of the frames in flight, oldest first
};

} // namespace zelvo::movie
