// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/RunLoop.h"
#include "ui/controls/GestureDelegate.h"

#include <glm/vec2.hpp>

#include <map>
#include <memory>
#include <optional>

namespace zelvo::ui {

/// Recognises pans, pinches and taps on the scene, from fingers, mouse, touchpad and wheel.
///
///     one finger    down ── moves 10 points ──> pan ... up: ended
///                   down ── up ──> tap; a second one soon after and near: also a double tap
///     two fingers   a pan ends, a pinch begins ... one goes: ended
///
/// The caller numbers the fingers. A third finger is ignored.
class SceneRecognizers {
public:
    static constexpr float kSlop = 10;        ///< points that a finger may move in a tap
    static constexpr double kTapTime = 0.35;  ///< seconds between the taps of a double tap
    static constexpr float kTapDistance = 40; ///< points between them
    /// Seconds without a step after which a wheel's pinch ends.
    static constexpr double kWheelPause = 0.2;

    SceneRecognizers(foundation::RunLoop& loop, GestureDelegate& receiver);

    void setViewSize(const glm::vec2& size) { viewSize = size; }

    void press(int finger, const glm::vec2& place);
    void move(int finger, const glm::vec2& place);
    void release(int finger, const glm::vec2& place);
    /// The mouse moves without a pressed button; empty: it has left the view.
    void hover(const std::optional<glm::vec2>& place);
    /// The system cancels all fingers. A pinch by wheel or touchpad continues.
    void cancel();

    /// A pinch on a touchpad; the first call begins it. `growth` is the change of scale since the
    /// last call.
    void growPinch(float growth, const glm::vec2& place);
    void endPinch();
    /// A step of the wheel with Ctrl, in degrees; the first one begins a pinch. A faster turn
    /// pinches faster.
    void turnWheel(float degrees, const glm::vec2& place);

    /// Whether a gesture is in progress.
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
    std::map<int, glm::vec2> fingers; ///< current places
    glm::vec2 start{0};               ///< where the first finger was pressed
    bool mayBeTap = false;
    bool isPanning = false;
    bool isPinching = false;
    float startDistance = 1;
    float scale = 1;
    float velocity = 0;
    float wheelReached = 0; ///< sum of the velocities in the wheel's pinch
    double scaleTime = 0;   ///< time of the last change of scale
    glm::vec2 pinchPlace{0};
    std::optional<Tap> lastTap;
    foundation::Timer wheelEnd;
};

} // namespace zelvo::ui
