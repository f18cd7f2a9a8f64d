// SPDX-License-Identifier: MIT
#include "ui/main/SceneRecognizers.h"

#include <glm/geometric.hpp>

#include <algorithm>
#include <cmath>
#include <utility>

namespace zelvo::ui {

namespace {

using actions::GestureState;

constexpr float kMinDistance = 1; ///< points; fingers at one place have no ratio
constexpr float kMinScale = 0.01f;
constexpr float kScaleADegree = 0.0125f; ///< a notch of the wheel, 15 degrees, is about a fifth
/// Seconds between notches of a wheel that turns fast. Between slow ones there is kWheelPause; this
/// is also assumed for a single notch, because its time is unknown.
constexpr double kFastNotch = 1.0 / 15;
/// The velocities of one turn of the wheel add up to at most this: the camera stops in front of the
/// title.
constexpr float kWheelReach = 30;
/// The smallest time between two changes of scale, in seconds. Two events at the same time must not
/// give an infinite velocity.
constexpr double kMinTime = 1.0 / 120;

} // namespace

SceneRecognizers::SceneRecognizers(foundation::RunLoop& loop, GestureDelegate& receiver)
    : runLoop(loop)
    , delegate(receiver) {}

void SceneRecognizers::press(int finger, const glm::vec2& place) {
    if (fingers.size() >= 2)
        return;
    fingers[finger] = place;
    if (fingers.size() == 1) {
        start = place;
        mayBeTap = true;
        return;
    }
    mayBeTap = false;
    if (isPanning)
        pan(GestureState::ended, place);
    beginFingersPinch();
}

void SceneRecognizers::move(int finger, const glm::vec2& place) {
    const auto found = fingers.find(finger);
    if (found == fingers.end())
        return;
    found->second = place;
    if (fingers.size() == 2) {
        pinchPlace = fingersMiddle();
        scaleTo(fingersDistance() / startDistance);
        return;
    }
    if (isPanning) {
        pan(GestureState::changed, place);
    } else if (mayBeTap && glm::distance(place, start) >= kSlop) {
        mayBeTap = false;
        pan(GestureState::began, place);
    }
}

void SceneRecognizers::release(int finger, const glm::vec2& place) {
    if (fingers.erase(finger) == 0)
        return;
    if (isPinching)
        endPinch();
    if (isPanning)
        pan(GestureState::ended, place);
    if (mayBeTap)
        tap(place);
    mayBeTap = false;
}

void SceneRecognizers::hover(const std::optional<glm::vec2>& place) {
    delegate.handleHover(place ? std::optional(Hover{*place, viewSize}) : std::nullopt);
}

void SceneRecognizers::cancel() {
    const bool isOfFingers = isPinching && fingers.size() == 2;
    fingers.clear();
    mayBeTap = false;
    if (isOfFingers) {
        isPinching = false;
        pinch(GestureState::cancelled);
    }
    if (isPanning)
        pan(GestureState::cancelled, start);
}

void SceneRecognizers::beginPinch(const glm::vec2& place) {
    if (isPanning)
        pan(GestureState::ended, place);
    mayBeTap = false;
    scale = 1;
    velocity = 0;
    scaleTime = runLoop.now();
    pinchPlace = place;
    isPinching = true;
    pinch(GestureState::began);
}

void SceneRecognizers::growPinch(float growth, const glm::vec2& place) {
    if (!isPinching)
        beginPinch(place);
    pinchPlace = place;
    scaleTo(scale * (1 + growth));
}

void SceneRecognizers::endPinch() {
    if (!isPinching)
        return;
    wheelEnd.invalidate();
    isPinching = false;
    pinch(GestureState::ended);
}

void SceneRecognizers::turnWheel(float degrees, const glm::vec2& place) {
    const bool goesOn = isPinching;
    if (!goesOn) {
        beginPinch(place);
        wheelReached = 0;
    }
    const float growth = std::exp(degrees * kScaleADegree) - 1;
    const double now = runLoop.now();
    const double since =
        goesOn ? std::clamp(now - scaleTime, kFastNotch, kWheelPause) : kWheelPause;
    const float reached =
        std::clamp(wheelReached + growth / static_cast<float>(since), -kWheelReach, kWheelReach);
    velocity = reached - std::exchange(wheelReached, reached);
    pinchPlace = place;
    setScale(scale * (1 + growth));
    wheelEnd = runLoop.scheduleOnce(kWheelPause, [this] { endPinch(); });
}

void SceneRecognizers::pan(GestureState state, const glm::vec2& place) {
    isPanning = state == GestureState::began || state == GestureState::changed;
    delegate.handlePan({state, place, viewSize, start});
}

void SceneRecognizers::pinch(GestureState state) {
    delegate.handlePinch({state, scale, velocity, pinchPlace, viewSize});
}

void SceneRecognizers::scaleTo(float wanted) {
    if (!isPinching)
        return;
    const float next = std::max(wanted, kMinScale);
    const double since = std::max(runLoop.now() - scaleTime, kMinTime);
    velocity = (next - scale) / static_cast<float>(since);
    setScale(next);
}

void SceneRecognizers::setScale(float newScale) {
    scale = std::max(newScale, kMinScale);
    scaleTime = runLoop.now();
    pinch(GestureState::changed);
}

void SceneRecognizers::tap(const glm::vec2& place) {
    const double now = runLoop.now();
    const bool isSecond = lastTap && now - lastTap->time <= kTapTime &&
                          glm::distance(place, lastTap->place) <= kTapDistance;
    delegate.handleTap({place, viewSize});
    if (isSecond) {
        lastTap.reset(); // a third tap starts again
        delegate.handleDoubleTap({place, viewSize});
    } else {
        lastTap = Tap{now, place};
    }
}

void SceneRecognizers::beginFingersPinch() {
    startDistance = fingersDistance();
    beginPinch(fingersMiddle());
}

float SceneRecognizers::fingersDistance() const {
    return std::max(glm::distance(fingers.begin()->second, fingers.rbegin()->second), kMinDistance);
}

glm::vec2 SceneRecognizers::fingersMiddle() const {
    return (fingers.begin()->second + fingers.rbegin()->second) * 0.5f;
}

} // namespace zelvo::ui
