// SPDX-License-Identifier: MIT
#include "ui/controls/ValueLabel.h"

#include "shared/Signal.h"

namespace zelvo::ui {

ValueLabel::ValueLabel(foundation::RunLoop& loop, QObject* parent)
    : QObject(parent)
    , runLoop(loop) {
    signals().messageSignal.subscribe(
        lifetime, [this](const std::string& message) { showMessage(message); });
}

void ValueLabel::showMessage(const std::string& message) {
    displayTimer.invalidate();
    hidden = true;
    text_ = QString::fromStdString(message);
    Q_EMIT changed();
    gapTimer = runLoop.scheduleOnce(kGap, [this] { showLabel(); });
}

void ValueLabel::dismiss() {
    gapTimer.invalidate();
    displayTimer.invalidate();
    hideLabel();
}

void ValueLabel::showLabel() {
    hidden = false;
    Q_EMIT changed();
    displayTimer = runLoop.scheduleOnce(kDisplayTime, [this] { hideLabel(); });
}

void ValueLabel::hideLabel() {
    hidden = true;
    Q_EMIT changed();
}

} // namespace zelvo::ui
