// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/render/SCNRenderer.h"

#include <functional>
#include <memory>

namespace zelvo::movie {

/// Where a movie's pictures come from: the offscreen renderer, or in tests something that paints
/// without a graphics card. A few frames may be begun before the first is finished, so that drawing
/// and reading back overlap.
class FrameSource {
public:
    static constexpr int kFramesInFlight = render::SCNRenderer::kFramesInFlight;

    virtual ~FrameSource() = default;

    /// What the scene is attached to; its `update` animates without drawing.
    [[nodiscard]] virtual scene::SCNSceneRenderer& renderer() = 0;

    /// Animates the scene to the request's time and starts drawing it.
    virtual void begin(const render::FrameRequest& request) = 0;
    /// The oldest frame begun; valid until the next call.
    [[nodiscard]] virtual render::FrameView finish() = 0;
    [[nodiscard]] virtual int framesInFlight() const = 0;

    /// Since the last reset.
    [[nodiscard]] virtual render::FrameTimes times() const = 0;
    virtual void resetTimes() = 0;
};

/// Makes the source when the first movie is asked for. Errors: unavailable, where the machine
/// cannot draw.
using FrameSourceFactory = std::function<foundation::Result<std::unique_ptr<FrameSource>>()>;

} // namespace zelvo::movie
