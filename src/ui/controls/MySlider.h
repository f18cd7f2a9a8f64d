// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <functional>
#include <optional>

namespace zelvo::ui {

/// A slider that goes back to its default at a double tap. Its number is shown in whole units.
class MySlider final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(double value READ value NOTIFY changed)
    Q_PROPERTY(double minimumValue READ minimumValue CONSTANT)
    Q_PROPERTY(double maximumValue READ maximumValue CONSTANT)
    Q_PROPERTY(QString name READ name CONSTANT)
    Q_PROPERTY(QString number READ number NOTIFY changed)
    Q_PROPERTY(QString text READ text NOTIFY changed)

public:
    struct Range {
        double minimum = 0;
        double maximum = 1;
        double step = 1; ///< of an arrow key and of a notch of the wheel: large enough to be seen
    };

    static constexpr double kLargeSteps = 5; ///< of Shift with an arrow key, and of a page key
    static constexpr double kSmallSteps = 1.0 / kLargeSteps; ///< of Ctrl with an arrow key

    /// `numbersUnit` follows the number in the text, with its space.
    MySlider(
        QString spokenName, Range allowed, QString numbersUnit = {}, QObject* parent = nullptr);

    std::optional<double> defaultValue;
    std::function<void(double)> valueChanged; ///< by the user, not by setValue; may be empty

    [[nodiscard]] double value() const { return value_; }

    [[nodiscard]] double minimumValue() const { return range.minimum; }

    [[nodiscard]] double maximumValue() const { return range.maximum; }

    [[nodiscard]] QString name() const { return name_; }

    [[nodiscard]] QString number() const;

    [[nodiscard]] QString text() const { return number() + unit; }

    /// Held within the range. Tells nobody but the view.
    void setValue(double newValue);
    /// The user moved the knob.
    Q_INVOKABLE void moveTo(double newValue);
    /// By that many steps; a part of one too.
    Q_INVOKABLE void moveBy(double steps);
    /// A Qt::Key with its Qt::KeyboardModifiers. Whether it moves sliders.
    Q_INVOKABLE bool pressKey(int key, int modifiers);
    /// The user wrote a number; anything else changes nothing.
    Q_INVOKABLE void write(const QString& typed);
    /// A double tap. Without a default nothing happens.
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
