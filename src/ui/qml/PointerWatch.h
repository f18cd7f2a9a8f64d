// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointF>
#include <QtQml/qqmlregistration.h>

namespace zelvo::ui {

/// Whether the user is pointing with a mouse or touchpad: true after it moves, false after a touch
/// or a key. So a control that appears below a resting pointer does not look pointed at. In QML it
/// is the singleton `Pointer`.
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
