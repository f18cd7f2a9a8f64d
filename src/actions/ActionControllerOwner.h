// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/RunLoop.h"
#include "platform/scene/SCNSceneRenderer.h"

namespace zelvo::actions {

/// What ActionController needs from its owner.
class ActionControllerOwner {
public:
    virtual ~ActionControllerOwner() = default;

    /// The clock's time in seconds, including the count-in. Any thread.
    [[nodiscard]] virtual double time() const = 0;
    /// Whether the timeline runs. Any thread.
    [[nodiscard]] virtual bool isPlaying() const = 0;

    /// Whether actions are recorded: a run may only play. Any thread.
    [[nodiscard]] virtual bool recordsActs() const { return isPlaying(); }

    /// The user is about to perform an action by hand.
    virtual void willPerform() {}

    /// The base duration of animations at the current speed, in seconds.
    [[nodiscard]] virtual double animationFactor() const = 0;

    /// Whether replayed actions draw the same random numbers each time, as in a movie.
    [[nodiscard]] virtual bool repeatsDraws() const { return false; }

    /// The renderer that shows the scene; null if there is none.
    [[nodiscard]] virtual scene::SCNSceneRenderer* currentRenderer() const { return nullptr; }

    /// Ends the run and resets the clock to 0.
    virtual void stopAndReset() = 0;

    /// Where records are made.
    [[nodiscard]] virtual foundation::SerialQueue& serialQueue() = 0;
    [[nodiscard]] virtual foundation::RunLoop& runLoop() = 0;
};

} // namespace zelvo::actions
