// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/RunLoop.h"
#include "ui/main/LostTime.h"

#include <QObject>

#include <atomic>
#include <memory>

class QQuickWindow;

namespace zelvo::ui {

/// Lets a window begin a frame only when its last one is on the screen and a run keeps its time.
///
/// Whatever changes in a window asks for a frame: the running time alone does so with every tick.
/// To hand a frame over, the main thread waits until the drawing thread is free. Without the gate
/// that is all the time the last frame takes, and ticks and presses wait as well.
///
///     asked for ──> is the last one drawn? ──> does the clock lose time? ──> begins
///                     no: once it is             yes: after a rest (LostTime)
class FrameGate final : public QObject {
public:
    /// The window may go first.
    FrameGate(QQuickWindow& watched, foundation::RunLoop& loop);
    ~FrameGate() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void listenToClock();
    [[nodiscard]] bool mayBegin();

    QQuickWindow& window;
    foundation::RunLoop& runLoop;
    LostTime lostTime;
    foundation::Timer rest;
    double begun = 0;                    ///< the last frame
    std::atomic<bool> isDrawing = false; ///< set and cleared on the drawing thread
    bool isAskedFor = false;             ///< a frame, while the last was being drawn
    std::shared_ptr<const bool> listening = std::make_shared<const bool>(true);
};

} // namespace zelvo::ui
