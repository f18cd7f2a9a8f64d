// SPDX-License-Identifier: MIT
#pragma once

#include "model/AnimationRatio.h"
#include "ui/controls/MyButton.h"

#include <QList>
#include <QObject>
#include <QPointF>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <functional>
#include <memory>
#include <vector>

namespace zelvo::ui {

class TimelineController;

/// What can be done with the picked acts of a time line: commands, then the speeds.
class TimelineMenu final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(QList<zelvo::ui::MyButton*> rows READ rows CONSTANT)
    Q_PROPERTY(int commandCount READ commandCount CONSTANT)
    Q_PROPERTY(bool isOpen READ isOpen WRITE setOpen NOTIFY changed)
    Q_PROPERTY(QPointF place READ place NOTIFY changed) ///< on the strip

public:
    explicit TimelineMenu(TimelineController& owner);

    /// Opens it there. Does nothing during a run.
    Q_INVOKABLE void open(QPointF place);
    void setOpen(bool isOn);

    [[nodiscard]] bool isOpen() const { return isOpen_; }

    [[nodiscard]] QPointF place() const { return place_; }

    [[nodiscard]] QList<MyButton*> rows() const;

    [[nodiscard]] static QString titleOf(model::AnimationRatio speed);

    [[nodiscard]] int commandCount() const { return static_cast<int>(commands.size()); }

Q_SIGNALS:
    void changed();

private:
    using ButtonPtr = std::unique_ptr<MyButton>;

    void add(ButtonFace face, std::function<void()> command);
    void showState();

    TimelineController& controller;
    std::vector<ButtonPtr> commands;
    std::vector<ButtonPtr> speeds; ///< in the order of model::kSpeeds
    bool isOpen_ = false;
    QPointF place_;
};

} // namespace zelvo::ui
