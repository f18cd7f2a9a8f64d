// SPDX-License-Identifier: MIT
#include "ui/menus/TimePickerView.h"

#include "platform/foundation/Console.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

namespace zelvo::ui {

TimePickerView::TimePickerView(double duration, QObject* parent)
    : QObject(parent)
    , minutes_(static_cast<int>(std::fmod(duration, 3600) / 60))
    , seconds_(static_cast<int>(std::fmod(duration, 60))) {}

void TimePickerView::select(int component, int row) {
    typed.reset();
    const int held = std::clamp(row, 0, kRows - 1);
    switch (component) {
    case minutesWheel:
        minutes_ = held;
        break;
    case secondsWheel:
        seconds_ = held;
        break;
    default:
        foundation::logLine(fmt::format("No component with number {}", component));
        return;
    }
    if (held < kMinSeconds && minutes_ == 0)
        seconds_ = kMinSeconds;
    Q_EMIT changed();
}

void TimePickerView::type(int component, int digit) {
    const bool isSecond = typed && typed->component == component;
    const int whole = isSecond ? typed->digit * 10 + digit : digit;
    const bool isComplete = isSecond && whole < kRows;
    select(component, isComplete ? whole : digit);
    if (!isComplete)
        typed = {component, digit};
}

} // namespace zelvo::ui
