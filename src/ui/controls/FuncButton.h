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

/// A button that acts at touch-down.
///
///                 touch-down         held                      lift-off
///     fire        beganFunc, flash                             -
///     timed       beganFunc, pulse   beganFunc every 0.1 s     the pulse ends
///     hold        beganFunc, lit                               endFunc(held seconds)
///
/// One press at a time: a further finger or key during a press is none of its business. A press
/// that is taken away (the button goes, the window loses the finger) ends as at lift-off.
class FuncButton final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(QString image READ image CONSTANT)
    Q_PROPERTY(QString title READ title CONSTANT)
    Q_PROPERTY(QString name READ name CONSTANT)
    Q_PROPERTY(QString key READ key CONSTANT)
    Q_PROPERTY(QColor selectedColor MEMBER selectedColor CONSTANT)
    Q_PROPERTY(QColor unselectedColor MEMBER unselectedColor CONSTANT)
    Q_PROPERTY(bool isHold READ isHold CONSTANT)
    Q_PROPERTY(bool isFlashing READ isFlashing NOTIFY glowChanged)
    Q_PROPERTY(bool isPulsing READ isPulsing NOTIFY glowChanged)
    Q_PROPERTY(bool isLit READ isLit NOTIFY glowChanged)

public:
    enum class Glow {
        none,
        flash, ///< selectedColor is animated to within kFlashDuration, then gone
        pulse, ///< to and fro in the same time, until lift-off
        lit    ///< selectedColor
    };

    static constexpr double kFlashDuration = 0.08; ///< seconds
    static constexpr double kRepeatInterval = 0.1; ///< seconds

    struct Action {
        std::function<void()> beganFunc;
        /// With the held seconds, absent where nobody measured; empty: a fire button.
        std::function<void(std::optional<double>)> endFunc{};
        bool timed = false;
    };

    FuncButton(
        foundation::RunLoop& loop, ButtonFace shown, Action given, QObject* parent = nullptr);
    /// Ends a press that is under way.
    ~FuncButton() override;
    FuncButton(const FuncButton&) = delete;
    FuncButton& operator=(const FuncButton&) = delete;

    QColor selectedColor = kAccentColor;
    QColor unselectedColor = kButtonColor;

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
    /// The press was taken away. Says so on the console.
    Q_INVOKABLE void cancel();

Q_SIGNALS:
    void glowChanged();

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
    std::optional<double> pressStartTime; ///< on the run loop's clock; absent: not pressed
    Glow glow_ = Glow::none;
};

/// What a list of such buttons holds, for the tools of QML.
struct FuncButtonList {
    Q_GADGET
    QML_ANONYMOUS
    QML_FOREIGN(QList<zelvo::ui::FuncButton*>)
    QML_SEQUENTIAL_CONTAINER(zelvo::ui::FuncButton*)
};

} // namespace zelvo::ui
