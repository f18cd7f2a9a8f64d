// SPDX-License-Identifier: MIT
#include "ui/audio/Dragger.h"

#include "audio/AudioPlayer.h"
#include "shared/FormatTime.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace zelvo::ui {

Dragger::Dragger(DraggedPart dragged, audio::AudioPlayer& written, Calls given)
    : part(dragged)
    , player(written)
    , calls(std::move(given)) {}

Dragger::Drag Dragger::begun(double x) const {
    return {x, player.audioIn, player.audioEnd, player.audioPreRoll};
}

void Dragger::beginDrag(double x) {
    calls.willDrag();
    drag = begun(x);
    Q_EMIT heldChanged();
}

void Dragger::dragTo(double x) {
    if (drag)
        move(*drag, x - drag->second);
}

void Dragger::endDrag() {
    drag.reset();
    Q_EMIT heldChanged();
}

void Dragger::move(const Drag& from, double seconds) {
    switch (part) {
    case DraggedPart::stretch:
        player.audioPreRoll = std::max(from.audioPreRoll + seconds, 0.0);
        break;
    case DraggedPart::start:
        player.audioIn =
            std::min(player.audioEnd - kLeastStretch, std::max(from.audioIn + seconds, 0.0));
        break;
    case DraggedPart::end:
        player.audioEnd = std::min(
            player.totalDuration,
            std::max(player.audioIn + kLeastStretch, from.audioEnd + seconds));
        break;
    }
    calls.didMove();
}

bool Dragger::pressKey(int key, int modifiers) {
    constexpr double kStep = 0.1; // seconds
    constexpr double kLargeStep = 1;
    const double step = (modifiers & Qt::ShiftModifier) != 0 ? kLargeStep : kStep;
    switch (key) {
    case Qt::Key_Left:
    case Qt::Key_Right:
        nudge(key == Qt::Key_Right ? step : -step);
        return true;
    case Qt::Key_Home:
    case Qt::Key_End:
        moveToLimit(key == Qt::Key_End);
        return true;
    default:
        return false;
    }
}

void Dragger::nudge(double seconds) {
    calls.willDrag();
    move(begun(0), seconds);
}

void Dragger::moveToLimit(bool isLast) {
    if (part == DraggedPart::stretch && isLast)
        return nudge(calls.movieDuration() - player.songEnd());
    const double far = player.totalDuration + player.audioPreRoll + kLeastStretch;
    nudge(isLast ? far : -far);
}

double Dragger::time() const {
    switch (part) {
    case DraggedPart::start:
        return player.audioIn;
    case DraggedPart::end:
        return player.audioEnd;
    default:
        return player.audioPreRoll;
    }
}

QString Dragger::timeText() const {
    const QString sign = time() < 0 ? QStringLiteral("-") : QString();
    return sign + QString::fromStdString(formatTime(std::abs(time())));
}

QString Dragger::name() const {
    switch (part) {
    case DraggedPart::start:
        return tr("Start of the music, at %1 of the song").arg(timeText());
    case DraggedPart::end:
        return tr("End of the music, at %1 of the song").arg(timeText());
    default:
        return tr("Music, from %1 of the movie").arg(timeText());
    }
}

double Dragger::place() const {
    return part == DraggedPart::end ? player.songEnd() : player.audioPreRoll;
}

} // namespace zelvo::ui
