// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <functional>
#include <optional>

namespace zelvo::ui {

/// A slider that returns to its default on a double tap.
class MySlider final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(double value READ value NOTIFY changed)
    Q_PROPERTY(double minimumValue READ minimumValue CONSTANT)
    Q_PROPERTY(double maximumValue READ maximumValue CONSTANT)
    Q_PROPERTY(double step READ step CONSTANT)
    Q_PROPERTY(QString name READ name CONSTANT)
    Q_PROPERTY(QString number READ number NOTIFY changed)
    Q_PROPERTY(QString text READ text NOTIFY changed)

public:
    struct Range {
        double minimum = 0;
        double maximum = 1;
        double step = 1; ///< for an arrow key or a notch of the wheel; large enough to be visible
    };

    /// Steps for Shift with an arrow key, and for a page key.
    static constexpr double kLargeSteps = 5;
    static constexpr double kSmallSteps = 1.0 / kLargeSteps; ///< steps for Ctrl with an arrow key

    /// `numbersUnit` is appended to the number, so include a space.
    MySlider(
        QString spokenName, Range allowed, QString numbersUnit = {}, QObject* parent = nullptr);

    std::optional<double> defaultValue;
    int decimals = 0; ///< of the shown number
    /// Called for changes by the user, not by setValue; may be empty.
    std::function<void(double)> valueChanged;

    [[nodiscard]] double value() const { return value_; }

    [[nodiscard]] double minimumValue() const { return range.minimum; }

    [[nodiscard]] double maximumValue() const { return range.maximum; }

    [[nodiscard]] double step() const { return range.step; }

    [[nodiscard]] QString name() const { return name_; }

    [[nodiscard]] QString number() const;

    [[nodiscard]] QString text() const { return number() + unit; }

    /// Clamps to the range. Only the view is told.
    void setValue(double newValue);
    /// The user has moved the knob.
    Q_INVOKABLE void moveTo(double newValue);
    /// Moves by a number of steps; fractions are allowed.
    Q_INVOKABLE void moveBy(double steps);
    /// Handles a Qt::Key with Qt::KeyboardModifiers. True if the key moves sliders.
    Q_INVOKABLE bool pressKey(int key, int modifiers);
    /// The user has typed a number; other text changes nothing.
    Q_INVOKABLE void write(const QString& typed);
    /// For a double tap. Does nothing if there is no default.
    Q_INVOKABLE void sliderTapped();

Q_SIGNALS:
    void changed();

private:
    QString name_;
    Range range;
    QString unit;
    double value_;
};

} // namespace zelvo::ui
