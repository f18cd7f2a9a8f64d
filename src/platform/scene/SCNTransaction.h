// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>

namespace zelvo::scene {

/// Groups changes of the scene. Between begin and commit, with an animationDuration above 0,
/// assignments to Animated properties are animated on the scene's clock; with 0 (the default) they
/// take effect at once. Transactions can be nested; the duration of an inner one starts at 0. Main
/// thread only.
class SCNTransaction {
public:
    static void begin();
    static void commit();
    static void setAnimationDuration(double seconds);

    /// Whether assignments are animated now, because the current transaction has a duration above
    /// 0.
    [[nodiscard]] static bool isAnimating();

    /// Called by Animated on an assignment while isAnimating: starts an animation. It increments
    /// `generation`; an older animation of the same property sees this and ends.
    static void
    animate(const std::shared_ptr<int>& generation, std::function<void(float)> interpolate);

    /// Advances all animations by a step of scene time. SCNScene::applyAnimations calls it once a
    /// frame. A new animation starts at 0 with the first call after it was made.
    static void advance(double step);
};

} // namespace zelvo::scene
