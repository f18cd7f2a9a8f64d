// SPDX-License-Identifier: MIT
#include "ui/main/Stage.h"

#include "core/model/Model.h"

#include <algorithm>
#include <utility>

namespace zelvo::ui {

Stage::Stage(const Services& given, GestureDelegate& delegate)
    : recognizers(given.runLoop, delegate)
    , services(given)
    , animated(given.runLoop.now()) {
    next = services.runLoop.scheduleOnce(0, [this] { askForFrame(); });
}

void Stage::setWindow(std::function<void()> request) {
    requestFrame = std::move(request);
}

void Stage::askForFrame() {
    animate();
    asked = services.runLoop.now();
    if (requestFrame && view.scene()) {
        isWaiting = true;
        requestFrame();
    }
    next = services.runLoop.scheduleOnce(kWithoutWindow, [this] { askForFrame(); });
}

void Stage::frameShown() {
    if (!isWaiting)
        return;
    isWaiting = false;
    ++shown;
    const double took = services.runLoop.now() - asked;
    scale.frameTook(took);
    next =
        services.runLoop.scheduleOnce(std::max(0.0, interval() - took), [this] { askForFrame(); });
    Q_EMIT frameTaken();
}

void Stage::failGraphics(const QString& why) {
    requestFrame = nullptr;
    Q_EMIT graphicsFailed(why);
}

void Stage::animate() {
    const double now = services.runLoop.now();
    const double passed = std::clamp(now - animated, 0.0, kMostStep);
    animated = now;
    // An export animates the scene by its own clock; afterwards this one goes on from there.
    if (const scene::SCNScenePtr scene = view.scene())
        view.update(scene->time() + passed);
}

double Stage::interval() const {
    const bool isBusy = services.model.isPlaying() || recognizers.isActive();
    return isBusy ? kFullPace : kRestPace;
}

} // namespace zelvo::ui
