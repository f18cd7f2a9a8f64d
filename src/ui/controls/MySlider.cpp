// SPDX-License-Identifier: MIT
#include "ui/controls/MySlider.h"

#include "platform/foundation/Check.h"

#include <algorithm>
#include <utility>

namespace zelvo::ui {

MySlider::MySlider(QString spokenName, Range allowed, QObject* parent)
    : QObject(parent)
    , name_(std::move(spokenName))
    , range(allowed)
    , value_(allowed.minimum) {
    CHECK(range.minimum < range.maximum, "a slider from {} to {}", range.minimum, range.maximum);
}

void MySlider::setValue(double newValue) {
    const double held = std::clamp(newValue, range.minimum, range.maximum);
    if (held == value_)
        return;
    value_ = held;
    Q_EMIT changed();
}

void MySlider::moveTo(double newValue) {
    setValue(newValue);
    if (valueChanged)
        valueChanged(value_);
}

void MySlider::sliderTapped() {
    if (defaultValue)
        moveTo(*defaultValue);
}

} // namespace zelvo::ui
