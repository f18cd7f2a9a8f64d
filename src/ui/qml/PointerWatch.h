// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointF>
#include <QtQml/qqmlregistration.h>

namespace zelvo::ui {

/// Whether the user points with the mouse or a touchpad right now: after a movement of it, until a
/// finger or a key comes. A control that appears below a resting pointer is not pointed at. In QML
/// the singleton `Pointer`.
class PointerWatch final : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(Pointer)
    QML_SINGLETON
    Q_PROPERTY(bool isInUse READ isInUse NOTIFY isInUseChanged)

public:
    /// Watches all events of the application, which must exist.
    explicit PointerWatch(QObject* parent = nullptr);

    [[nodiscard]] bool isInUse() const { return inUse; }

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    void isInUseChanged();

private:
    void setInUse(bool isOn);

    bool inUse = false;
    QPointF lastPlace;
};

} // namespace zelvo::ui
