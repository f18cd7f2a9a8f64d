// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Lifetime.h"
#include "ui/controls/Services.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace zelvo::ui {

/// The ring of the export screen. It follows the clock and never goes back.
class ExportProgressView final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(double currentProgress MEMBER currentProgress NOTIFY changed)
    Q_PROPERTY(double radiusOfWidth MEMBER radiusOfWidth CONSTANT)
    Q_PROPERTY(double lineOfRadius MEMBER lineOfRadius CONSTANT)
    Q_PROPERTY(double startAngle MEMBER startAngle CONSTANT)

public:
    explicit ExportProgressView(const Services& given);

    double currentProgress = 0; ///< the highest shown so far, 0 to 1

    const double radiusOfWidth = 0.81 / 2; ///< the ring's radius, relative to the view's width
    const double lineOfRadius = 0.115;     ///< the line's width, relative to the radius
    const double startAngle = -90;         ///< degrees, clockwise from 3 o'clock: the top

Q_SIGNALS:
    void changed();

private:
    Services services;
    foundation::Lifetime lifetime;
};

} // namespace zelvo::ui
