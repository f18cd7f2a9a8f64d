// SPDX-License-Identifier: MIT
#include "ui/main/Stage.h"

#include "model/Model.h"

#include <algorithm>
#include <utility>

namespace zelvo::ui {

Stage::Stage(const Services& given, GestureDelegate& delegate)
    : recognizers(given.runLoop, delegate)
    , services(given)
    , animated(given.runLoop.now()) {
    next = services.runLoop.scheduleOnce(0, [this] { askForFrame(); });
}

void Stage::setWindow(Window shownBy) {
    window = std::move(shownBy);
}

void Stage::askForFrame() {
    animate();
    asked = services.runLoop.now();
    double patience = kWithoutWindow;
    if (window.requestFrame && view.scene()) {
        isWaiting = needsFrame();
        if (isWaiting) {
            window.requestFrame();
        } else {
            patience = kRestPace;
        }
    }
    next = services.runLoop.scheduleOnce(patience, [this] { askForFrame(); });
}

bool Stage::needsFrame() {
    // During a performance no frame may take long, even if nothing moves at the moment.
    const bool mayRest = window.pictureKey && !isBusy();
    scale.nextShows(mayRest ? window.pictureKey() : std::nullopt);
    return !scale.isDrawn();
}

void Stage::frameShown() {
    if (!isWaiting)
        return;
    isWaiting = false;
    ++shown;
    const double took = services.runLoop.now() - asked;
    scale.frameTook(took);
    const double interval = isBusy() ? kFullPace : kRestPace;
    next = services.runLoop.scheduleOnce(std::max(0.0, interval - took), [this] { askForFrame(); });
    Q_EMIT frameTaken();
}

void Stage::failGraphics(const QString& why) {
    window = {};
    Q_EMIT graphicsFailed(why);
}

void Stage::animate() {
    const double now = services.runLoop.now();
    const double passed =
        services.model.isParked() ? 0.0 : std::clamp(now - animated, 0.0, kMaxStep);
    animated = now;
    // An export animates the scene by its own clock; afterwards this clock continues from there.
    if (const scene::SCNScenePtr scene = view.scene())
        view.update(scene->time() + passed);
}

bool Stage::isBusy() const {
    return services.model.isPlaying() || recognizers.isActive();
}

} // namespace zelvo::ui
