// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/GestureDelegate.h"

namespace zelvo::ui {

/// Gestures on the scene as the work of a camera operator, while the catalogue shows.
class CameraGestures final : public GestureDelegate {
public:
    explicit CameraGestures(actions::Gestures& camera)
        : gestures(camera) {}

    void handlePinch(const PinchGesture& pinch) override {
        gestures.pinch(pinch.state, pinch.velocity);
    }

    void handlePan(const PanGesture& pan) override { gestures.pan(pan.state, pan.location); }

    void handleTap(const TapGesture&) override { gestures.tap(); }

    void handleDoubleTap(const TapGesture&) override { gestures.doubleTap(); }

private:
    actions::Gestures& gestures;
};

} // namespace zelvo::ui
