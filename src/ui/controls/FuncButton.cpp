// SPDX-License-Identifier: MIT
#include "ui/controls/FuncButton.h"

#include "platform/foundation/Check.h"
#include "platform/foundation/Console.h"

#include <utility>

namespace zelvo::ui {

FuncButton::FuncButton(foundation::RunLoop& timing, ButtonFace shown, Action given, QObject* parent)
    : QObject(parent)
    , runLoop(timing)
    , face(std::move(shown))
    , action(std::move(given)) {
    CHECK(static_cast<bool>(action.beganFunc), "a button without anything to do");
}

FuncButton::~FuncButton() {
    end();
}

void FuncButton::press() {
    if (isPressed())
        return;
    pressStartTime = runLoop.now();
    Q_EMIT isPressedChanged();
    runBeganFunc();
    startGlow();
}

void FuncButton::startGlow() {
    if (isHold()) {
        setGlow(Glow::lit);
        return;
    }
    if (action.timed) {
        setGlow(Glow::pulse);
        timer = runLoop.scheduleRepeating(kRepeatInterval, [this] { runBeganFunc(); });
        return;
    }
    setGlow(Glow::none); // restarts a running flash
    setGlow(Glow::flash);
    flashing = runLoop.scheduleOnce(kFlashDuration, [this] { setGlow(Glow::none); });
}

void FuncButton::release() {
    end();
}

void FuncButton::cancel() {
    if (!isPressed())
        return;
    foundation::logLine("cancelled");
    end();
}

void FuncButton::end() {
    if (!isPressed())
        return;
    const double held = runLoop.now() - *pressStartTime;
    pressStartTime.reset();
    Q_EMIT isPressedChanged();
    timer.invalidate();
    if (action.timed || isHold())
        setGlow(Glow::none);
    if (action.endFunc)
        action.endFunc(held);
}

void FuncButton::runBeganFunc() const {
    action.beganFunc();
}

void FuncButton::setGlow(Glow shown) {
    if (glow_ == shown)
        return;
    glow_ = shown;
    Q_EMIT glowChanged();
}

} // namespace zelvo::ui
