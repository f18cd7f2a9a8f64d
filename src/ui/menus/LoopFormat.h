// SPDX-License-Identifier: MIT
#pragma once

#include "catalogue/ActionLoop.h"

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <string_view>

namespace zelvo::ui {

/// How the frames lie in the picture of a loop, for the views; see catalogue::ActionLoop.
class LoopFormat final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(int frameWidth MEMBER frameWidth CONSTANT)
    Q_PROPERTY(int frameHeight MEMBER frameHeight CONSTANT)
    Q_PROPERTY(int columns MEMBER columns CONSTANT)
    Q_PROPERTY(int frameRate MEMBER frameRate CONSTANT)

public:
    using QObject::QObject;

    const int frameWidth = catalogue::ActionLoop::kWidth;
    const int frameHeight = catalogue::ActionLoop::kHeight;
    const int columns = catalogue::ActionLoop::kColumns;
    const int frameRate = catalogue::ActionLoop::kFramesPerSecond;
};

/// The URL of the loop of the button with this title; empty if there is none, because none could be drawn.
[[nodiscard]] QString loopOf(std::string_view title);

} // namespace zelvo::ui
