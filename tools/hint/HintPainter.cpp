// SPDX-License-Identifier: MIT
#include "HintPainter.h"

#include "shared/FormatTime.h"
#include "ui/qml/Theme.h"

#include <QPainter>

#include <utility>

namespace zelvo::hint {

namespace {

// Pixels.
constexpr double kBarHeight = 44;
constexpr double kTimeBarHeight = 4;
constexpr double kPanelTop = 296;
constexpr double kMargin = 10;
constexpr double kGap = 6;
constexpr double kButtonTop = 306;
constexpr double kButtonHeight = 44;
constexpr double kCaptionMiddle = 268;
constexpr double kHandRadius = 15;
const QRectF kRecordButton(265, 6, 110, 32);
const QPointF kHandAtRest(470, 215);

const ui::Theme& theme() {
    static const ui::Theme shared;
    return shared;
}

QFont font(const QString& family, int pixels) {
    QFont chosen(family);
    chosen.setPixelSize(pixels);
    chosen.setWeight(QFont::Medium);
    return chosen;
}

QRectF buttonRect(int index, std::size_t count) {
    const auto n = static_cast<double>(count);
    const double width = (HintPainter::kWidth - 2 * kMargin - (n - 1) * kGap) / n;
    return {kMargin + index * (width + kGap), kButtonTop, width, kButtonHeight};
}

QPointF placeOf(const Target& target, std::size_t count) {
    if (target.button == Target::kRecord)
        return kRecordButton.center() + QPointF(-28, 20);
    return buttonRect(target.button, count).center() + QPointF(14, 20);
}

bool isRecording(const Moment& moment) {
    return moment.act == Act::waitForCountIn || moment.act == Act::pressActions;
}

const char* captionOf(Act act) {
    switch (act) {
    case Act::pressRecord:
        return "1   Press the red button";
    case Act::waitForCountIn:
        return "2   Wait for the count-in";
    case Act::pressActions:
        return "3   Press actions: they are recorded";
    case Act::pressAgain:
        return "4   Press again to replay";
    }
    return "";
}

} // namespace

HintPainter::HintPainter(std::vector<std::string> buttonLabels, QString fontFamily)
    : labels(std::move(buttonLabels))
    , family(std::move(fontFamily)) {}

void HintPainter::paint(QImage& picture, const Moment& moment) const {
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    paintBar(painter, moment);
    paintButtons(painter, moment);
    paintCaption(painter, moment);
    paintHand(painter, moment);
}

void HintPainter::paintBar(QPainter& painter, const Moment& moment) const {
    painter.fillRect(QRectF(0, 0, kWidth, kBarHeight), theme().bar);
    painter.setBrush(theme().buttonFill);
    painter.drawRoundedRect(kRecordButton, theme().radius, theme().radius);

    const QPointF dot(kRecordButton.left() + 20, kRecordButton.center().y());
    painter.setBrush(theme().record);
    if (isRecording(moment)) {
        painter.drawRoundedRect(QRectF(dot.x() - 7, dot.y() - 7, 14, 14), 3, 3);
    } else {
        painter.drawEllipse(dot, 8, 8);
    }
    painter.setPen(theme().text);
    painter.setFont(font(family, 16));
    painter.drawText(
        kRecordButton.adjusted(36, 0, 0, 0),
        Qt::AlignVCenter | Qt::AlignLeft,
        QString::fromStdString(ui::formatTime(moment.clock)));
    painter.setPen(Qt::NoPen);

    const bool counts = moment.countIn > 0;
    const double filled = counts ? moment.countIn : moment.run;
    if (isRecording(moment)) {
        painter.fillRect(
            QRectF(0, kBarHeight, kWidth * filled, kTimeBarHeight),
            counts ? theme().accent : theme().record);
    }
}

void HintPainter::paintButtons(QPainter& painter, const Moment& moment) const {
    painter.fillRect(QRectF(0, kPanelTop, kWidth, kHeight - kPanelTop), theme().bar);
    painter.setFont(font(family, 16));
    for (std::size_t i = 0; i < labels.size(); ++i) {
        const auto index = static_cast<int>(i);
        const QRectF rect = buttonRect(index, labels.size());
        painter.setBrush(theme().buttonFill);
        painter.drawRoundedRect(rect, theme().radius, theme().radius);
        if (moment.from.button == index && moment.press > 0) {
            QColor light = theme().accent;
            light.setAlphaF(static_cast<float>(moment.press));
            painter.setBrush(light);
            painter.drawRoundedRect(rect, theme().radius, theme().radius);
        }
        painter.setPen(theme().text);
        painter.drawText(rect, Qt::AlignCenter, QString::fromStdString(labels[i]));
        painter.setPen(Qt::NoPen);
    }
}

void HintPainter::paintCaption(QPainter& painter, const Moment& moment) const {
    const QString caption = QString::fromUtf8(captionOf(moment.act));
    painter.setFont(font(family, 20));
    const QRectF text = painter.fontMetrics().boundingRect(caption);
    QRectF pill(0, 0, text.width() + 36, 36);
    pill.moveCenter({kWidth / 2.0, kCaptionMiddle});
    painter.setBrush(QColor(8, 8, 9, 215));
    painter.drawRoundedRect(pill, 18, 18);
    painter.setPen(theme().hint);
    painter.drawText(pill, Qt::AlignCenter, caption);
    painter.setPen(Qt::NoPen);
}

void HintPainter::paintHand(QPainter& painter, const Moment& moment) const {
    const bool isIntro = moment.act == Act::pressRecord;
    const QPointF from = isIntro ? kHandAtRest : placeOf(moment.from, labels.size());
    const QPointF place = from + (placeOf(moment.to, labels.size()) - from) * moment.way;
    if (moment.press > 0) {
        const double radius = kHandRadius * (1 + 1.4 * (1 - moment.press));
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(QColor(255, 255, 255, static_cast<int>(255 * moment.press)), 3));
        painter.drawEllipse(place, radius, radius);
    }
    painter.setPen(QPen(Qt::white, 2));
    painter.setBrush(QColor(255, 255, 255, moment.press > 0.4 ? 235 : 150));
    painter.drawEllipse(place, kHandRadius, kHandRadius);
    painter.setPen(Qt::NoPen);
}

} // namespace zelvo::hint
