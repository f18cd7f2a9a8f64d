// SPDX-License-Identifier: MIT
#include "ui/screens/TouchView.h"

#include <algorithm>

namespace zelvo::ui {

namespace {

constexpr double kFade = 0.2;               ///< seconds
constexpr double kTimerInterval = 1.0 / 60; ///< seconds
const QColor kColor(52, 152, 219, 204);

} // namespace

TouchView::TouchView(foundation::RunLoop& loop, QObject* parent)
    : QObject(parent)
    , runLoop(loop) {}

int TouchView::fadeMilliseconds() {
    return static_cast<int>(kFade * 1000);
}

QColor TouchView::color() const {
    return config.color.value_or(kColor);
}

void TouchView::begin(int id, const TouchVisualizerConfiguration& configuration) {
    touch = id;
    config = configuration;
    previousRatio = 1;
    lastTimeString.reset();
    if (config.showsTimer) {
        startDate = runLoop.now();
        timer = runLoop.scheduleRepeating(kTimerInterval, [this] { update(); });
        update();
    }
    Q_EMIT timerLabelChanged();
    Q_EMIT isShownChanged();
}

void TouchView::update() {
    const QString text = QString::number(runLoop.now() - startDate.value_or(0), 'f', 2);
    if (text == lastTimeString)
        return;
    lastTimeString = text;
    Q_EMIT timerLabelChanged();
}

void TouchView::moveTo(QPointF place, double radius) {
    center_ = place;
    if (config.showsTouchRadius && radius > 0)
        previousRatio = 2 * radius / std::max(1.0, config.defaultSize.width());
    Q_EMIT moved();
}

void TouchView::end() {
    timer.invalidate();
    fading = runLoop.scheduleOnce(kFade, [this] {
        fading.invalidate();
        touch = kNoTouch;
    });
    Q_EMIT isShownChanged();
}

} // namespace zelvo::ui
