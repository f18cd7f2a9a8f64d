// SPDX-License-Identifier: MIT
#pragma once

#include <QPointF>

#include <string_view>
#include <vector>

class QEvent;

namespace zelvo::ui {

enum class TouchPhase { began, moved, stationary, ended, cancelled };

[[nodiscard]] std::string_view nameOf(TouchPhase phase);

/// One finger of an event, or the mouse with its left button down.
struct Touch {
    static constexpr int kMouse = 0x10000; ///< an id that no finger has

    int id = 0;
    TouchPhase phase = TouchPhase::began;
    QPointF location{}; ///< of the window, device-independent pixels
    double radius = 0;
};

/// The touches that an event of a window tells of; empty for other events, and for mouse events
/// that the system made of touches.
[[nodiscard]] std::vector<Touch> touchesOf(const QEvent& event);

} // namespace zelvo::ui
