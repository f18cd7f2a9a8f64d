// SPDX-License-Identifier: MIT
#include "ui/screens/BlurCover.h"

namespace zelvo::ui {

namespace {

constexpr double kFade = 0.1; ///< seconds

bool hasRoomForCover(node::DeviceIdiom idiom, double nativeHeight) {
    return idiom == node::DeviceIdiom::tablet || nativeHeight == 1920.0 || nativeHeight == 2208.0;
}

} // namespace

BlurCover::BlurCover(foundation::RunLoop& loop, node::DeviceIdiom idiom, double nativeHeight)
    : runLoop(loop)
    , isWanted(hasRoomForCover(idiom, nativeHeight)) {}

int BlurCover::fadeMilliseconds() {
    return static_cast<int>(kFade * 1000);
}

void BlurCover::show() {
    if (!isWanted || present)
        return;
    present = true;
    alpha_ = 1;
    Q_EMIT changed();
}

void BlurCover::hide() {
    if (!present || removal.isValid())
        return;
    alpha_ = 0;
    removal = runLoop.scheduleOnce(kFade, [this] {
        removal.invalidate();
        present = false;
        Q_EMIT changed();
    });
    Q_EMIT changed();
}

} // namespace zelvo::ui
