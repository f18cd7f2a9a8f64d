// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Lifetime.h"
#include "ui/controls/InterfaceColors.h"
#include "ui/controls/Services.h"

#include <QColor>
#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace zelvo::ui {

enum class PreparingStage { preparing = 0, recording = 1 };

/// The thin time bar of the main screen: it shrinks in the count-in and grows in the run. It does
/// not move during an export.
class ProgressView final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(double fill READ fill NOTIFY changed)
    Q_PROPERTY(QColor color READ color NOTIFY changed)

public:
    explicit ProgressView(const Services& given);

    QColor preparingColor = kAccentColor;
    QColor progressColor = kRecordColor;
    PreparingStage state = PreparingStage::preparing;
    float value = 0; ///< share of the count-in or of the run

    /// The filled share of the bar, from the left, 0 to 1.
    [[nodiscard]] double fill() const;

    [[nodiscard]] QColor color() const {
        return state == PreparingStage::preparing ? preparingColor : progressColor;
    }

Q_SIGNALS:
    void changed();

private:
    Services services;
    foundation::Lifetime lifetime;
};

} // namespace zelvo::ui
