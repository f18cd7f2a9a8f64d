// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Lifetime.h"
#include "ui/controls/Services.h"

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace zelvo::ui {

/// One line that says what to do next: for as long as nothing is recorded, and after a deletion.
class Guidance final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(QString text READ text NOTIFY changed)
    Q_PROPERTY(bool canPutBack READ canPutBack NOTIFY changed)

public:
    explicit Guidance(const Services& given, QObject* parent = nullptr);

    /// Whether the catalogue is shown; otherwise the style panel is.
    void setPerforming(bool isOn);

    /// A button was pressed while nothing was being recorded: says so once.
    void pressedIdly();

    /// Whether the line offers to put back what was deleted.
    [[nodiscard]] bool canPutBack() const;
    /// Does nothing if there is nothing.
    Q_INVOKABLE void putBack() const;

    /// Empty once there is something to replay, and during a run.
    [[nodiscard]] QString text() const;

Q_SIGNALS:
    void changed();

private:
    Services services;
    bool isPerforming = false;
    bool hasSaid = false;
    bool hasSaidWhilePlaying = false;
    foundation::Lifetime lifetime;
};

} // namespace zelvo::ui
