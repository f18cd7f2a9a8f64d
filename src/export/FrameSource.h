// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/render/SCNRenderer.h"

#include <functional>
#include <memory>

namespace zelvo::movie {

/// Makes a movie's pictures: the offscreen renderer, or in tests a replacement without graphics.
/// Several frames can be begun before the first is finished, so that drawing and reading back
/// overlap.
class FrameSource {
public:
    static constexpr int kFramesInFlight = render::SCNRenderer::kFramesInFlight;

    virtual ~FrameSource() = default;

    /// The scene is attached to this; its `update` animates without drawing.
    [[nodiscard]] virtual scene::SCNSceneRenderer& renderer() = 0;

    /// Animates the scene to the request's time and starts to draw it.
    virtual void begin(const render::FrameRequest& request) = 0;
    /// Waits for the oldest frame; valid until the next call.
    [[nodiscard]] virtual render::FrameView finish() = 0;
    [[nodiscard]] virtual int framesInFlight() const = 0;

    /// Since the last reset.
    [[nodiscard]] virtual render::FrameTimes times() const = 0;
    virtual void resetTimes() = 0;
};

/// Makes the source when the first movie starts. Error: `unavailable` if the machine cannot draw.
using FrameSourceFactory = std::function<foundation::Result<std::unique_ptr<FrameSource>>()>;

} // namespace zelvo::movie
