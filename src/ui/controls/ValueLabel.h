// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Lifetime.h"
#include "platform/foundation/RunLoop.h"

#include <QMarginsF>
#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <string>

namespace zelvo::ui {

/// Shows each message of `messageSignal` for a moment. A further message restarts the time, with a
/// short gap that makes the change visible.
class ValueLabel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(QString text READ text NOTIFY changed)
    Q_PROPERTY(bool isHidden READ isHidden NOTIFY changed)
    Q_PROPERTY(qreal horizontalInset READ horizontalInset CONSTANT)
    Q_PROPERTY(qreal verticalInset READ verticalInset CONSTANT)

public:
    static constexpr double kGap = 0.1;         ///< seconds
    static constexpr double kDisplayTime = 2.2; ///< seconds

    explicit ValueLabel(foundation::RunLoop& loop, QObject* parent = nullptr);

    [[nodiscard]] QString text() const { return text_; }

    [[nodiscard]] bool isHidden() const { return hidden; }

    [[nodiscard]] qreal horizontalInset() const { return edgeInsets.left(); }

    [[nodiscard]] qreal verticalInset() const { return edgeInsets.top(); }

    /// Removes a message that no longer matters, whether it is shown or waits.
    void dismiss();

Q_SIGNALS:
    void changed();

private:
    void showMessage(const std::string& message);
    void showLabel();
    void hideLabel();

    foundation::RunLoop& runLoop;
    QMarginsF edgeInsets{19, 8, 19, 8};
    foundation::Timer gapTimer;
    foundation::Timer displayTimer;
    QString text_;
    bool hidden = true;
    foundation::Lifetime lifetime;
};

} // namespace zelvo::ui
