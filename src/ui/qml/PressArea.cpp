// SPDX-License-Identifier: MIT
#include "ui/qml/PressArea.h"

namespace zelvo::ui {

PressArea::PressArea(QQuickItem* parent)
    : QQuickItem(parent) {
    setAcceptedMouseButtons(Qt::LeftButton);
    setAcceptTouchEvents(true);
    setKeepTouchGrab(true);
    setKeepMouseGrab(true);
}

void PressArea::touchEvent(QTouchEvent* event) {
    if (event->type() == QEvent::TouchCancel) {
        cancel();
        return;
    }
    for (const QEventPoint& point : event->points()) {
        if (point.state() == QEventPoint::Pressed && !held) {
            begin(point.id());
        } else if (point.state() == QEventPoint::Released && held == point.id()) {
            held.reset();
            Q_EMIT released();
        }
    }
    event->accept();
}

void PressArea::touchUngrabEvent() {
    if (held != kMouse)
        cancel();
}

void PressArea::mousePressEvent(QMouseEvent* event) {
    if (!held)
        begin(kMouse);
    event->accept();
}

void PressArea::mouseReleaseEvent(QMouseEvent* event) {
    event->accept();
    if (held != kMouse)
        return;
    held.reset();
    Q_EMIT released();
}

void PressArea::mouseUngrabEvent() {
    if (held == kMouse)
        cancel();
}

void PressArea::begin(int point) {
    held = point;
    Q_EMIT pressed();
}

void PressArea::cancel() {
    if (!held)
        return;
    held.reset();
    Q_EMIT canceled();
}

} // namespace zelvo::ui
