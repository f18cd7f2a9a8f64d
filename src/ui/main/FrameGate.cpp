// SPDX-License-Identifier: MIT
#include "ui/main/FrameGate.h"

#include "shared/Signal.h"

#include <QEvent>
#include <QQuickWindow>

#include <utility>

namespace zelvo::ui {

FrameGate::FrameGate(QQuickWindow& watched, foundation::RunLoop& loop)
    : window(watched)
    , runLoop(loop) {
    const auto direct = Qt::DirectConnection; // on the drawing thread
    connect(
        &window, &QQuickWindow::beforeFrameBegin, this, [this] { isDrawing = true; }, direct);
    connect(
        &window, &QQuickWindow::afterFrameEnd, this, [this] { isDrawing = false; }, direct);
    const auto goOn = [this] {
        if (std::exchange(isAskedFor, false))
            window.requestUpdate();
    };
    connect(&window, &QQuickWindow::afterFrameEnd, this, goOn, Qt::QueuedConnection);
    listenToClock();
    window.installEventFilter(this);
}

FrameGate::~FrameGate() = default;

void FrameGate::listenToClock() {
    signals().isPlayingSignal.subscribe(lifetime, [this](bool isPlaying) {
        if (isPlaying) {
            lostTime.runBegan(runLoop.now());
        } else {
            lostTime.runEnded();
        }
    });
    signals().timeSignal.subscribe(
        lifetime, [this](const TimeState&) { lostTime.ticked(runLoop.now()); });
}

bool FrameGate::eventFilter(QObject* watched, QEvent* event) {
    const bool isHeldBack = event->type() == QEvent::UpdateRequest && !mayBegin();
    return isHeldBack || QObject::eventFilter(watched, event);
}

bool FrameGate::mayBegin() {
    if (isDrawing) {
        isAskedFor = true;
        return false;
    }
    const double now = runLoop.now();
    const double from = lostTime.drawsFrom(begun);
    if (now < from) {
        rest = runLoop.scheduleOnce(from - now, [this] { window.requestUpdate(); });
        return false;
    }
    rest.invalidate();
    begun = now;
    return true;
}

} // namespace zelvo::ui
