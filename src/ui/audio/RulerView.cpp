// SPDX-License-Identifier: MIT
#include "ui/audio/RulerView.h"

#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <QRectF>

#include <algorithm>
#include <array>
#include <cmath>

namespace zelvo::ui {

namespace {

constexpr double kMargin = 9;     ///< of the first mark, above and below
constexpr double kFirstWidth = 1; ///< of the first mark
constexpr double kTickWidth = 0.75;
constexpr double kLongTick = 0.6; ///< share of the height
constexpr double kShortTick = 0.3;
constexpr double kLabelLeft = 10; ///< from its tick
constexpr double kLabelTop = 11;
constexpr double kBeatTop = 17;
constexpr double kBeatHeight = 5;
constexpr double kLeastBeats = 4; ///< points between two beats; closer ones would be a grey bar

// clang-format off
constexpr auto kScales = std::to_array<RulerScale>({
    {150,  0.2, 5, true },
    { 15,    1, 5, true },
    {  3,    5, 6, false},
    {1.5,   10, 6, false},
    {.25,   60, 5, false},
    {  0,  600, 6, false},
});
// clang-format on

} // namespace

const RulerScale& RulerScale::at(double pointsPerSecond) {
    const auto* const found = std::ranges::find_if(
        kScales, [&](const RulerScale& scale) { return pointsPerSecond >= scale.leastPoints; });
    return found == kScales.end() ? kScales.back() : *found;
}

QString RulerScale::label(int tick) const {
    const int seconds = static_cast<int>(std::lround(tick * tickSeconds));
    if (countsSeconds)
        return QString::number(seconds);
    return QStringLiteral("%1:%2").arg(seconds / 60).arg(seconds % 60, 2, 10, QLatin1Char('0'));
}

RulerView::RulerView(QQuickItem* parent)
    : QQuickPaintedItem(parent) {
    connect(this, &RulerView::looksChanged, this, [this] { update(); });
}

void RulerView::paint(QPainter* painter) {
    const RulerScale& scale = RulerScale::at(pointsPerSecond);
    const double step = scale.tickSeconds * pointsPerSecond;
    QFont font = painter->font();
    font.setPixelSize(labelSize);
    font.setBold(true);
    const double ascent = QFontMetricsF(font).ascent();
    painter->setFont(font);
    painter->setPen(fillColor);
    painter->setRenderHint(QPainter::Antialiasing);
    painter->fillRect(QRectF(origin, kMargin, kFirstWidth, height() - 2 * kMargin), fillColor);
    // A label reaches to the right of its tick, so begin one label early.
    const int first = std::max(0, static_cast<int>(-origin / step) - scale.ticksALabel);
    for (int tick = first; origin + tick * step <= width(); ++tick) {
        const double x = origin + tick * step;
        const bool isLong = tick % scale.ticksALabel == 0;
        const double length = height() * (isLong ? kLongTick : kShortTick);
        painter->fillRect(QRectF(x, (height() - length) / 2, kTickWidth, length), fillColor);
        if (isLong)
            painter->drawText(QPointF(x + kLabelLeft, kLabelTop + ascent), scale.label(tick));
    }
    paintBeats(*painter);
}

void RulerView::paintBeats(QPainter& painter) const {
    QColor faint = fillColor;
    faint.setAlphaF(0.6F);
    double last = -kLeastBeats;
    for (const double beat : beats) {
        const double x = origin + beat * pointsPerSecond;
        if (x < 0 || x > width() || x - last < kLeastBeats)
            continue;
        painter.fillRect(QRectF(x - 1, kBeatTop, 2, kBeatHeight), faint);
        last = x;
    }
}

} // namespace zelvo::ui
