// SPDX-License-Identifier: MIT
#include "ui/controls/MySlider.h"

#include "platform/foundation/Check.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace zelvo::ui {

namespace {

/// How many steps a key moves by; 0 if the key does not move sliders.
double stepsOf(int key) {
    switch (key) {
    case Qt::Key_Right:
    case Qt::Key_Up:
        return 1;
    case Qt::Key_Left:
    case Qt::Key_Down:
        return -1;
    case Qt::Key_PageUp:
        return MySlider::kLargeSteps;
    case Qt::Key_PageDown:
        return -MySlider::kLargeSteps;
    default:
        return 0;
    }
}

} // namespace

MySlider::MySlider(QString spokenName, Range allowed, QString numbersUnit, QObject* parent)
    : QObject(parent)
    , name_(std::move(spokenName))
    , range(allowed)
    , unit(std::move(numbersUnit))
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

void MySlider::moveBy(double steps) {
    moveTo(value_ + steps * range.step);
}

bool MySlider::pressKey(int key, int modifiers) {
    const double steps = stepsOf(key);
    if (key == Qt::Key_Home)
        moveTo(range.minimum);
    else if (key == Qt::Key_End)
        moveTo(range.maximum);
    else if (steps == 0)
        return false;
    else if ((modifiers & Qt::ShiftModifier) != 0)
        moveBy(steps * kLargeSteps);
    else
        moveBy((modifiers & Qt::ControlModifier) != 0 ? steps * kSmallSteps : steps);
    return true;
}

void MySlider::write(const QString& typed) {
    QString plain = typed.trimmed();
    plain.replace(QChar(0x2212), '-').replace(',', '.'); // a minus sign, a decimal comma
    bool isNumber = false;
    const double wanted = plain.toDouble(&isNumber);
    if (isNumber && std::isfinite(wanted))
        moveTo(wanted);
}

QString MySlider::number() const {
    const double scale = std::pow(10, decimals);
    const double rounded = std::round(value_ * scale) / scale + 0.0; // never "-0"
    return QString::number(rounded, 'f', decimals);
}

void MySlider::sliderTapped() {
    if (defaultValue)
        moveTo(*defaultValue);
}

} // namespace zelvo::ui
