// SPDX-License-Identifier: MIT
#include "app/WaveformPicture.h"

#include "app/Lettering.h"
#include "ui/audio/WaveformBars.h"

#include <fmt/format.h>

#include <QImage>
#include <QPainter>

#include <algorithm>
#include <array>
#include <cmath>

namespace zelvo::app {

namespace {

// In pixels.
constexpr double kEdge = 20;
constexpr double kTitleHeight = 44;
constexpr double kTitleBaseline = 30;
constexpr double kTitleSize = 17;
constexpr double kRulerHeight = 40;
constexpr double kLabelSize = 12;
constexpr double kLabelDistance = 70;
constexpr double kLabelBaseline = 30;
constexpr double kLongTick = 14;
constexpr double kShortTick = 7;
constexpr int kShortTicks = 5; ///< from label to label

const QColor kSongGround(38, 74, 120);
const QColor kSong = QColor::fromRgbF(0.873F, 0.882F, 0.954F);
const QColor kTick(166, 168, 181);

void drawSong(QPainter& painter, const sound::Waveform& waveform, const QRectF& area) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(kSongGround);
    painter.drawRoundedRect(area, 6, 6);
    painter.setRenderHint(QPainter::Antialiasing, false);
    const double middle = std::round(area.center().y());
    painter.fillRect(QRectF(area.left(), middle, area.width(), 1), kSong);
    if (waveform.values().empty())
        return;
    const ui::WaveformPlace place{
        .songStart = area.left(),
        .pointsPerValue = area.width() / static_cast<double>(waveform.values().size()),
        .height = area.height(),
        .left = area.left(),
        .right = area.right()};
    for (const auto& bar : ui::barsOf(waveform.values(), place))
        painter.fillRect(QRectF(bar.x, middle - bar.reach, bar.width, 2 * bar.reach + 1), kSong);
    painter.setRenderHint(QPainter::Antialiasing);
}

void drawRuler(QPainter& painter, const Lettering& lettering, double duration, const QRectF& area) {
    if (duration <= 0.0)
        return;
    const double step = labelStep(kLabelDistance * duration / area.width());
    const auto ticks = static_cast<int>(std::floor(duration / step * kShortTicks + 1e-9));
    for (int i = 0; i <= ticks; ++i) {
        const double seconds = i * step / kShortTicks;
        const double x = area.left() + std::round(seconds / duration * area.width());
        const bool isLong = i % kShortTicks == 0;
        painter.fillRect(QRectF(x, area.top(), 1, isLong ? kLongTick : kShortTick), kTick);
        const double room = area.right() + kEdge - x;
        if (isLong && room > kLabelDistance / 2)
            lettering.draw(
                painter,
                {.text = labelOf(seconds, step), .size = kLabelSize, .maxWidth = room},
                {x, area.top() + kLabelBaseline},
                kTick);
    }
}

} // namespace

double labelStep(double minDistance) {
    constexpr std::array kSteps{
        0.1,
        0.2,
        0.5,
        1.0,
        2.0,
        5.0,
        10.0,
        15.0,
        30.0,
        60.0,
        120.0,
        300.0,
        600.0,
        1800.0,
        3600.0,
        7200.0,
        21600.0};
    const auto* const found = std::ranges::lower_bound(kSteps, minDistance);
    return found == kSteps.end() ? kSteps.back() : *found;
}

std::string labelOf(double seconds, double step) {
    const auto tenths = std::llround(seconds * 10);
    const auto whole = tenths / 10;
    const std::string fraction = step < 1.0 ? fmt::format(".{}", tenths % 10) : "";
    if (whole >= 3600)
        return fmt::format("{}:{:02}:{:02}{}", whole / 3600, whole / 60 % 60, whole % 60, fraction);
    return fmt::format("{}:{:02}{}", whole / 60, whole % 60, fraction);
}

foundation::Result<image::Image>
drawWaveform(const sound::Waveform& waveform, const std::string& title, PictureSize size) {
    const auto lettering = Lettering::open();
    if (!lettering)
        return tl::unexpected(lettering.error());
    QImage canvas(size.width, size.height, QImage::Format_RGBX8888);
    canvas.fill(kGround);
    QPainter painter(&canvas);
    painter.setRenderHint(QPainter::Antialiasing);
    const double width = std::max(size.width - 2 * kEdge, 1.0);
    const double height = std::max(size.height - kTitleHeight - kRulerHeight, 1.0);
    const double rate = waveform.valuesASecond();
    const double duration = rate > 0.0 ? static_cast<double>(waveform.values().size()) / rate : 0.0;
    lettering->draw(
        painter,
        {.text = fmt::format("{}   {}", title, labelOf(duration, 1.0)),
         .size = kTitleSize,
         .maxWidth = width},
        {kEdge, kTitleBaseline},
        kInk);
    drawSong(painter, waveform, {kEdge, kTitleHeight, width, height});
    drawRuler(painter, *lettering, duration, {kEdge, kTitleHeight + height, width, kRulerHeight});
    painter.end();
    return copied(canvas);
}

} // namespace zelvo::app
