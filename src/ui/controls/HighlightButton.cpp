// SPDX-License-Identifier: MIT
#include "ui/controls/HighlightButton.h"

#include "shared/Signal.h"

#include <QUuid>

#include <utility>

namespace zelvo::ui {

namespace {

/// "HighlightButtonNotification": uuid of the touched button and its stack.
Signal<std::string, const QObject*>& highlightButtonNotification() {
    static Signal<std::string, const QObject*> all;
    return all;
}

} // namespace

HighlightButton::HighlightButton(
    ButtonFace shown, std::function<void()> targetFunc, QObject* parent)
    : MyButton(std::move(shown), std::move(targetFunc), parent)
    , uuid(QUuid::createUuid().toString(QUuid::WithoutBraces).toStdString()) {
    highlightButtonNotification().subscribe(
        listening, [this](const std::string& selectedUuid, const QObject* where) {
            catchSelectedNotification(selectedUuid, where);
        });
    selectedColor = kAccentColor;
}

void HighlightButton::didTouch() {
    if (highlightingEnabled && stack != nullptr)
        highlightButtonNotification().fire(uuid, stack);
}

void HighlightButton::catchSelectedNotification(
    const std::string& selectedUuid, const QObject* where) {
    if (where == stack)
        setMySelected(selectedUuid == uuid);
}

} // namespace zelvo::ui
