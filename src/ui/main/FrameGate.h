// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Lifetime.h"
#include "platform/foundation/RunLoop.h"
#include "ui/main/LostTime.h"

#include <QObject>

#include <atomic>

class QQuickWindow;

namespace zelvo::ui {

/// Lets a window start a frame only if the last frame is on the screen and the run is not late.
///
/// Every change in a window requests a frame; the running time does so with every tick. To start a
/// frame, the main thread waits until the drawing thread is free. Without the gate it would wait
/// for the whole last frame, and so would ticks and presses.
///
///     requested ──> is the last one drawn? ──> is the clock late? ──> starts
///                     no: waits for it           yes: pauses (LostTime)
class FrameGate final : public QObject {
public:
    /// The window may be destroyed first.
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
    double begun = 0;                    ///< start of the last frame
    std::atomic<bool> isDrawing = false; ///< set and cleared on the drawing thread
    bool isAskedFor = false; ///< a frame was requested while the last one was being drawn
    foundation::Lifetime lifetime;
};

} // namespace zelvo::ui
