// SPDX-License-Identifier: MIT
#include "ui/controls/MyButton.h"

#include "ui/controls/KeyName.h"

#include <utility>

namespace zelvo::ui {

MyButton::MyButton(ButtonFace shown, std::function<void()> targetFunc, QObject* parent)
    : QObject(parent)
    , target(std::move(targetFunc))
    , face(std::move(shown)) {}

QString MyButton::key() const {
    return keyName(face.key);
}

QString MyButton::image() const {
    return selected && !selectedImage.isEmpty() ? selectedImage : face.image;
}

void MyButton::setFace(ButtonFace shown) {
    face = std::move(shown);
    Q_EMIT changed();
}

void MyButton::setEnabled(bool isUsable) {
    if (enabled == isUsable)
        return;
    enabled = isUsable;
    Q_EMIT changed();
}

void MyButton::setMySelected(bool isOn) {
    if (selected == isOn)
        return;
    selected = isOn;
    Q_EMIT changed();
}

void MyButton::click() {
    if (!enabled)
        return;
    didTouch();
    if (target)
        target();
}

} // namespace zelvo::ui
