// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/MyButton.h"

#include <QObject>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

#include <functional>

namespace zelvo::ui {

/// The list of keys, and the button that opens it.
class Help final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(zelvo::ui::MyButton* button READ buttonObject CONSTANT)
    Q_PROPERTY(QStringList keys READ keys CONSTANT)
    Q_PROPERTY(QStringList meanings READ meanings CONSTANT)

public:
    explicit Help(std::function<void()> show, QObject* parent = nullptr);

    MyButton button;

    /// As they stand on a keyboard, such as "Ctrl+Z".
    [[nodiscard]] static QStringList keys();
    /// What each of them does.
    [[nodiscard]] static QStringList meanings();

    [[nodiscard]] MyButton* buttonObject() { return &button; }
};

} // namespace zelvo::ui
