// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/RunLoop.h"
#include "platform/scene/SCNSceneRenderer.h"

namespace zelvo::actions {

/// What ActionController needs of the object that owns it.
class ActionControllerOwner {
public:
    virtual ~ActionControllerOwner() = default;

    /// Seconds of the clock, count-in included. Any thread.
    [[nodiscard]] virtual double time() const = 0;
    /// Whether the timeline runs, so that actions are recorded. Any thread.
    [[nodiscard]] virtual bool isPlaying() const = 0;

    /// The base duration of animations at the present speed, seconds.
    [[nodiscard]] virtual double animationFactor() const = 0;

    /// The one that shows the scene; null if none does.
    [[nodiscard]] virtual scene::SCNSceneRenderer* currentRenderer() const { return nullptr; }

    /// Ends a run and takes the clock back to 0.
    virtual void stopAndReset() = 0;

    /// Where records are built.
    [[nodiscard]] virtual foundation::SerialQueue& serialQueue() = 0;
    [[nodiscard]] virtual foundation::RunLoop& runLoop() = 0;
};

} // namespace zelvo::actions
