// SPDX-License-Identifier: MIT
#pragma once

#include <QPointF>

#include <string_view>
#include <vector>

class QEvent;

namespace zelvo::ui {

enum class TouchPhase { began, moved, stationary, ended, cancelled };

[[nodiscard]] std::string_view nameOf(TouchPhase phase);

/// A finger in an event, or the mouse with its left button pressed.
struct Touch {
    static constexpr int kMouse = 0x10000; ///< an id that no finger can have

    int id = 0;
    TouchPhase phase = TouchPhase::began;
    QPointF location{}; ///< in the window, device-independent pixels
    double radius = 0;
};

/// The touches in a window's event. Empty for other events, and for mouse events that the system
/// has made from touches.
[[nodiscard]] std::vector<Touch> touchesOf(const QEvent& event);

} // namespace zelvo::ui
