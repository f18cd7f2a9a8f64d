// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/GestureDelegate.h"

namespace zelvo::ui {

/// Gestures on the scene as the work of a camera operator, while the catalogue shows. A drag is
/// measured by the view's width: over all of it the camera turns the same in a small window and on
/// a large screen.
class CameraGestures final : public GestureDelegate {
public:
    explicit CameraGestures(actions::Gestures& camera)
        : gestures(camera) {}

    void handlePinch(const PinchGesture& pinch) override {
        gestures.pinch(pinch.state, pinch.velocity);
    }

    void handlePan(const PanGesture& pan) override {
        gestures.pan(pan.state, pan.location * (kViewWidth / pan.viewSize.x));
    }

    void handleTap(const TapGesture&) override { gestures.tap(); }

    void handleDoubleTap(const TapGesture&) override { gestures.doubleTap(); }

private:
    static constexpr float kViewWidth = 1280; ///< in points of the camera's gestures

    actions::Gestures& gestures;
};

} // namespace zelvo::ui
