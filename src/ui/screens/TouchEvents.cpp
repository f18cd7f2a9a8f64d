// SPDX-License-Identifier: MIT
#include "ui/screens/TouchEvents.h"

#include <QMouseEvent>
#include <QTouchEvent>

#include <algorithm>

namespace zelvo::ui {

namespace {

TouchPhase phaseOf(QEventPoint::State state) {
    switch (state) {
    case QEventPoint::State::Pressed:
        return TouchPhase::began;
    case QEventPoint::State::Updated:
        return TouchPhase::moved;
    case QEventPoint::State::Released:
        return TouchPhase::ended;
    default:
        return TouchPhase::stationary;
    }
}

std::vector<Touch> fingersOf(const QTouchEvent& event) {
    std::vector<Touch> touches;
    for (const QEventPoint& point : event.points()) {
        const QSizeF contact = point.ellipseDiameters();
        touches.push_back(
            {.id = point.id(),
             .phase = event.type() == QEvent::TouchCancel ? TouchPhase::cancelled
                                                          : phaseOf(point.state()),
             .location = point.scenePosition(),
             .radius = std::max(contact.width(), contact.height()) / 2});
    }
    return touches;
}

std::vector<Touch> mouseOf(const QMouseEvent& event, TouchPhase phase) {
    const bool concernsButton = phase == TouchPhase::moved
                                    ? event.buttons().testFlag(Qt::LeftButton)
                                    : event.button() == Qt::LeftButton;
    if (!concernsButton || event.source() != Qt::MouseEventNotSynthesized)
        return {};
    return {{.id = Touch::kMouse, .phase = phase, .location = event.scenePosition(), .radius = 0}};
}

} // namespace

std::string_view nameOf(TouchPhase phase) {
    switch (phase) {
    case TouchPhase::began:
        return "began";
    case TouchPhase::moved:
        return "moved";
    case TouchPhase::stationary:
        return "stationary";
    case TouchPhase::ended:
        return "ended";
    case TouchPhase::cancelled:
        return "cancelled";
    }
    return {};
}

std::vector<Touch> touchesOf(const QEvent& event) {
    switch (event.type()) {
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TouchCancel:
        return fingersOf(static_cast<const QTouchEvent&>(event));
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        return mouseOf(static_cast<const QMouseEvent&>(event), TouchPhase::began);
    case QEvent::MouseMove:
        return mouseOf(static_cast<const QMouseEvent&>(event), TouchPhase::moved);
    case QEvent::MouseButtonRelease:
        return mouseOf(static_cast<const QMouseEvent&>(event), TouchPhase::ended);
    default:
        return {};
    }
}

} // namespace zelvo::ui
