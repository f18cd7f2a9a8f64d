// SPDX-License-Identifier: MIT
#pragma once

#include "platform/scene/Timing.h"

#include <functional>
#include <memory>

namespace zelvo::scene {

/// Groups changes of the scene. Inside begin … commit with an animationDuration above 0,
/// assignments to Animated properties travel on the scene's clock; with 0 (the default) they take
/// effect at once. Transactions nest; an inner one has its own duration, which starts as 0. Main
/// thread only.
class SCNTransaction {
public:
    static void begin();
    static void commit();
    static void setAnimationDuration(double seconds);
    static void setAnimationTimingFunction(TimingFunction timing);

    /// Whether assignments travel now: a transaction with a duration above 0 is open.
    [[nodiscard]] static bool isAnimating();

    /// What Animated calls on assignment while isAnimating: keeps the interpolation for the scene's
    /// next evaluations. Raises `generation`; an animation whose number is no longer the current
    /// one has been superseded and ends.
    static void
    animate(const std::shared_ptr<int>& generation, std::function<void(float)> interpolate);

    /// Advances all running property animations by a step of scene time. Called once per frame by
    /// SCNScene::applyAnimations. As an action, an animation begins with the first advance after it
    /// was made, at 0.
    static void advance(double step);

    /// Ends all running animations at their targets.
    static void flush();
};

} // namespace zelvo::scene
