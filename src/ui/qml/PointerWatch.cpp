// SPDX-License-Identifier: MIT
#include "ui/qml/PointerWatch.h"

#include <QCoreApplication>
#include <QMouseEvent>

#include <utility>

namespace zelvo::ui {

PointerWatch::PointerWatch(QObject* parent)
    : QObject(parent) {
    QCoreApplication::instance()->installEventFilter(this);
}

bool PointerWatch::eventFilter(QObject*, QEvent* event) {
    switch (event->type()) {
    case QEvent::MouseMove: {
        const auto& move = static_cast<const QMouseEvent&>(*event);
        const bool isOfFinger = move.deviceType() == QInputDevice::DeviceType::TouchScreen;
        const bool hasMoved = std::exchange(lastPlace, move.globalPosition()) != lastPlace;
        if (hasMoved && !isOfFinger)
            setInUse(true);
        break;
    }
    case QEvent::KeyPress:
    case QEvent::TouchBegin:
        setInUse(false);
        break;
    default:
        break;
    }
    return false;
}

void PointerWatch::setInUse(bool isOn) {
    if (std::exchange(inUse, isOn) != isOn)
        Q_EMIT isInUseChanged();
}

} // namespace zelvo::ui
