// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/GestureDelegate.h"

namespace zelvo::ui {

/// Gestures on the scene that move the camera, while the catalogue is shown. A drag is measured
/// relative to the view's width, so that the camera turns by the same angle in a small window and
/// on a large screen.
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
    static constexpr float kViewWidth = 1280; ///< width of the view in the camera's gesture points

    actions::Gestures& gestures;
};

} // namespace zelvo::ui
