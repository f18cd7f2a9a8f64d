// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/RunLoop.h"
#include "ui/controls/InterfaceColors.h"
#include "ui/controls/MyButton.h"

#include <QColor>
#include <QList>
#include <QObject>
#include <QtQml/qqml.h>

#include <functional>
#include <optional>

namespace zelvo::ui {

/// A button that acts when it is pressed, not when it is released.
///
///                 touch-down         held                      lift-off
///     fire        beganFunc, flash                             -
///     timed       beganFunc, pulse   beganFunc every 0.1 s     the pulse ends
///     hold        beganFunc, lit                               endFunc(held seconds)
///
/// It handles one press at a time; further fingers or keys are ignored meanwhile. If a press is
/// cancelled (the button is destroyed, the window loses the finger), it ends like a normal release.
class FuncButton final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(QString image READ image CONSTANT)
    Q_PROPERTY(QString title READ title CONSTANT)
    Q_PROPERTY(QString name READ name CONSTANT)
    Q_PROPERTY(QString key READ key CONSTANT)
    Q_PROPERTY(QString loop MEMBER loop CONSTANT)
    Q_PROPERTY(QColor markColor MEMBER markColor CONSTANT)
    Q_PROPERTY(QColor selectedColor MEMBER selectedColor CONSTANT)
    Q_PROPERTY(QColor unselectedColor MEMBER unselectedColor CONSTANT)
    Q_PROPERTY(bool isHold READ isHold CONSTANT)
    Q_PROPERTY(bool isPressed READ isPressed NOTIFY isPressedChanged)
    Q_PROPERTY(bool isFlashing READ isFlashing NOTIFY glowChanged)
    Q_PROPERTY(bool isPulsing READ isPulsing NOTIFY glowChanged)
    Q_PROPERTY(bool isLit READ isLit NOTIFY glowChanged)

public:
    enum class Glow {
        none,
        flash, ///< selectedColor fades in and out within kFlashDuration
        pulse, ///< the same, repeated until the release
        lit    ///< selectedColor
    };

    static constexpr double kFlashDuration = 0.08; ///< seconds
    static constexpr double kRepeatInterval = 0.1; ///< seconds

    struct Action {
        std::function<void()> beganFunc;
        /// Gets the time of the press in seconds, if known. Empty for a fire button.
        std::function<void(std::optional<double>)> endFunc{};
        bool timed = false;
    };

    FuncButton(
        foundation::RunLoop& timing, ButtonFace shown, Action given, QObject* parent = nullptr);
    /// Ends the current press.
    ~FuncButton() override;
    FuncButton(const FuncButton&) = delete;
    FuncButton& operator=(const FuncButton&) = delete;

    QColor selectedColor = kAccentColor;
    QColor unselectedColor = kButtonColor;
    QColor markColor = kTextColor; ///< of its key and of the mark of a hold button
    QString loop; ///< URL of the frames of what it does, see catalogue::ActionLoop; empty: none

    [[nodiscard]] QString image() const { return face.image; }

    [[nodiscard]] QString title() const { return face.title; }

    [[nodiscard]] QString name() const { return face.name.isEmpty() ? face.title : face.name; }

    [[nodiscard]] QString key() const { return face.key; }

    [[nodiscard]] bool isHold() const { return static_cast<bool>(action.endFunc); }

    [[nodiscard]] bool isPressed() const { return pressStartTime.has_value(); }

    [[nodiscard]] Glow glow() const { return glow_; }

    [[nodiscard]] bool isFlashing() const { return glow_ == Glow::flash; }

    [[nodiscard]] bool isPulsing() const { return glow_ == Glow::pulse; }

    [[nodiscard]] bool isLit() const { return glow_ == Glow::lit; }

    Q_INVOKABLE void press();
    Q_INVOKABLE void release();
    /// The press was cancelled. Reported on the console.
    Q_INVOKABLE void cancel();

Q_SIGNALS:
    void glowChanged();
    void isPressedChanged();

private:
    void setGlow(Glow shown);
    void startGlow();
    void end();
    void runBeganFunc() const;

    foundation::RunLoop& runLoop;
    ButtonFace face;
    Action action;
    foundation::Timer timer; ///< repeats beganFunc
    foundation::Timer flashing;
    std::optional<double> pressStartTime; ///< time of the run loop; empty: not pressed
    Glow glow_ = Glow::none;
};

/// Makes the list type known to QML's tools.
struct FuncButtonList {
    Q_GADGET
    QML_ANONYMOUS
    QML_FOREIGN(QList<zelvo::ui::FuncButton*>)
    QML_SEQUENTIAL_CONTAINER(zelvo::ui::FuncButton*)
};

} // namespace zelvo::ui
