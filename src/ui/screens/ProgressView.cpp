// SPDX-License-Identifier: MIT
#include "ui/screens/ProgressView.h"

#include "model/Model.h"
#include "shared/Signal.h"

namespace zelvo::ui {

namespace {

// Near the ends of the count-in the bar is empty, so that it does not flash.
constexpr float kCountInBegin = 0.01f;
constexpr float kCountInEnd = 0.98f;

} // namespace

ProgressView::ProgressView(const Services& given)
    : services(given) {
    signals().timeSignal.subscribe(lifetime, [this](const TimeState& time) {
        services.runLoop.post(lifetime.guard([this, time] {
            if (services.model.isRecordingMovie())
                return;
            state = time.isCountIn ? PreparingStage::preparing : PreparingStage::recording;
            value = static_cast<float>(time.runFraction);
            Q_EMIT changed();
        }));
    });
}

double ProgressView::fill() const {
    if (state == PreparingStage::recording)
        return value >= 1 ? 0 : static_cast<double>(value);
    return value <= kCountInBegin || value >= kCountInEnd ? 0 : 1.0 - static_cast<double>(value);
}

} // namespace zelvo::ui
