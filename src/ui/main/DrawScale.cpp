// SPDX-License-Identifier: MIT
#include "ui/main/DrawScale.h"

#include <algorithm>
#include <cmath>

namespace zelvo::ui {

namespace {

constexpr double kStep = 0.85; ///< one step is about a quarter of the pixels
constexpr double kWidestStep = 0.5;
constexpr double kNewest = 0.15;  ///< weight of the newest frame in the mean
constexpr int kBeforeFalling = 6; ///< frames; the first ones after a change make new textures
constexpr int kBeforeRising = 90;
constexpr double kHangup = 0.25; ///< seconds; if this happens once, drawing is not the cause
// If a frame at normal scale takes the allowed time, it takes a tenth of a second at twice the
// scale, and a fifth at three times.
constexpr double kFiner = 2;
constexpr double kFinest = 3;

} // namespace

void DrawScale::nextShows(std::optional<std::uint64_t> picture) {
    repeats = picture && picture == shown ? repeats + 1 : 0;
    shown = picture;
}

double DrawScale::value() const {
    if (!isAtRest())
        return scale;
    return std::min(scale * (repeats < kBeforeFinest ? kFiner : kFinest), kMaxAtRest);
}

bool DrawScale::isDrawn() const {
    const bool growsFiner = repeats == kBeforeFinest && scale * kFiner < kMaxAtRest;
    return repeats > kBeforeRest && !growsFiner;
}

void DrawScale::frameTook(double seconds) {
    if (isAtRest()) // such a frame does not tell how long a moving picture takes
        return;
    hangups = seconds > kHangup ? hangups + 1 : 0;
    if (hangups == 1)
        return;
    ++frames;
    mean = frames == 1 ? seconds : mean + (seconds - mean) * kNewest;
    if (mean > kLongFrame && frames >= kBeforeFalling && scale > kMin) {
        // Drawing time grows with the number of pixels, so with the square of the scale.
        const double fitting = std::sqrt(kLongFrame / mean);
        change(std::max(scale * std::clamp(fitting, kWidestStep, kStep), kMin));
    } else if (mean < kShortFrame && frames >= kBeforeRising && scale < kMax) {
        change(std::min(scale / kStep, kMax));
    }
}

void DrawScale::change(double wanted) {
    scale = wanted;
    frames = 0;
}

} // namespace zelvo::ui
