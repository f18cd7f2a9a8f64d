// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/RunLoop.h"
#include "ui/controls/GestureDelegate.h"

#include <glm/vec2.hpp>

#include <map>
#include <memory>
#include <optional>

namespace zelvo::ui {

/// Tells pans, pinches and taps apart in what fingers, mouse, touchpad and wheel do on the scene.
///
///     one finger    down ── moves 10 points ──> pan ... up: ended
///                   down ── up ──> tap, and a second one soon after and near: double tap too
///     two fingers   a pan ends, a pinch begins ... one goes: ended
///
/// Fingers have numbers of the caller's choice. A third finger is nobody's business.
class SceneRecognizers {
public:
    static constexpr float kSlop = 10;         ///< points a finger may move in a tap
    static constexpr double kTapTime = 0.35;   ///< seconds between the taps of a double tap
    static constexpr float kTapDistance = 40;  ///< points between them
    static constexpr double kWheelPause = 0.2; ///< seconds without a step that end a wheel's pinch

    SceneRecognizers(foundation::RunLoop& loop, GestureDelegate& receiver);

    void setViewSize(const glm::vec2& size) { viewSize = size; }

    void press(int finger, const glm::vec2& place);
    void move(int finger, const glm::vec2& place);
    void release(int finger, const glm::vec2& place);
    /// The mouse without a pressed button; empty: it has left the view.
    void hover(const std::optional<glm::vec2>& place);
    /// The system takes all fingers away; a pinch of the wheel or a touchpad goes on.
    void cancel();

    /// A touchpad's own pinch: `growth` is what the scale grew by since the last call. The first
    /// one begins it.
    void growPinch(float growth, const glm::vec2& place);
    void endPinch();
    /// A step of the wheel with Ctrl, in degrees; the first one begins a pinch. A fast turn pinches
    /// faster than a slow one.
    void turnWheel(float degrees, const glm::vec2& place);

    /// Something is under way, or was until just now.
    [[nodiscard]] bool isActive() const { return isPanning || isPinching || !fingers.empty(); }

private:
    void pan(actions::GestureState state, const glm::vec2& place);
    void pinch(actions::GestureState state);
    void scaleTo(float wanted);
    void setScale(float newScale);
    void tap(const glm::vec2& place);
    void beginPinch(const glm::vec2& place);
    void beginFingersPinch();
    [[nodiscard]] float fingersDistance() const;
    [[nodiscard]] glm::vec2 fingersMiddle() const;

    struct Tap {
        double time = 0;
        glm::vec2 place{0};
    };

    foundation::RunLoop& runLoop;
    GestureDelegate& delegate;
    glm::vec2 viewSize{1};
    std::map<int, glm::vec2> fingers; ///< where each is now
    glm::vec2 start{0};               ///< where the first finger went down
    bool mayBeTap = false;
    bool isPanning = false;
    bool isPinching = false;
    float startDistance = 1;
    float scale = 1;
    float velocity = 0;
    float wheelReached = 0; ///< the velocities of the wheel's pinch, added up
    double scaleTime = 0;   ///< of the last change of the scale
    glm::vec2 pinchPlace{0};
    std::optional<Tap> lastTap;
    foundation::Timer wheelEnd;
};

} // namespace zelvo::ui
