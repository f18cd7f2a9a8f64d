// SPDX-License-Identifier: MIT
#include "ui/menus/RecordButton.h"

#include "model/Model.h"
#include "shared/FormatTime.h"
#include "shared/Signal.h"

#include <cmath>
#include <utility>

namespace zelvo::ui {

namespace {

ButtonFace faceOf(const QString& image, const QString& title, const QString& name) {
    return {.image = image, .title = title, .name = name, .key = QStringLiteral("Space")};
}

} // namespace

RecordButton::RecordButton(
    model::Model& given, foundation::RunLoop& loop, std::function<void()> targetFunc)
    : MyLabelButton(
          faceOf(QStringLiteral("RecordButton"), QStringLiteral("0:00.00"), tr("Record")),
          std::move(targetFunc))
    , model(given)
    , runLoop(loop) {
    size = {120, 36};
    unselectedColor = kClearButtonColor;
    selectedColor = kRecordColor;
    normalTextColor = kRecordColor;
    highlightTextColor = Qt::white;
    signals().timeSignal.subscribe(lifetime, [this](const TimeState& state) {
        if (!model.isRecordingMovie())
            runLoop.post(lifetime.guard([this, time = state.time] { showTime(time); }));
    });
    signals().isPlayingSignal.subscribe(lifetime, [this](bool) {
        runLoop.post(lifetime.guard(
            [this] { showRecording(model.recordsActs() && !model.isRecordingMovie()); }));
    });
}

void RecordButton::showTime(double time) {
    const double rel = time - model.startCounter();
    const QString sign = rel < 0 ? QStringLiteral("-") : QString();
    setFace(
        faceOf(face.image, sign + QString::fromStdString(formatTime(std::abs(rel))), face.name));
}

void RecordButton::showRecording(bool isRecording) {
    setMySelected(isRecording);
    if (isRecording)
        setFace(faceOf(QStringLiteral("PauseButton"), face.title, tr("Stop")));
    else
        setFace(faceOf(QStringLiteral("RecordButton"), face.title, tr("Record")));
}

} // namespace zelvo::ui
