// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <functional>
#include <optional>

namespace zelvo::ui {

/// A slider that goes back to its default at a double tap.
class MySlider final : public QObject {
    Q_OBJECT
    Q_PROPERTY(double value READ value NOTIFY changed)
    Q_PROPERTY(double minimumValue READ minimumValue CONSTANT)
    Q_PROPERTY(double maximumValue READ maximumValue CONSTANT)
    Q_PROPERTY(QString name READ name CONSTANT)

public:
    struct Range {
        double minimum = 0;
        double maximum = 1;
    };

    MySlider(QString spokenName, Range allowed, QObject* parent = nullptr);

    std::optional<double> defaultValue;
    std::function<void(double)> valueChanged; ///< by the user, not by setValue; may be empty

    [[nodiscard]] double value() const { return value_; }

    [[nodiscard]] double minimumValue() const { return range.minimum; }

    [[nodiscard]] double maximumValue() const { return range.maximum; }

    [[nodiscard]] QString name() const { return name_; }

    /// Held within the range. Tells nobody but the view.
    void setValue(double newValue);
    /// The user moved the knob.
    Q_INVOKABLE void moveTo(double newValue);
    /// A double tap. Without a default nothing happens.
    Q_INVOKABLE void sliderTapped();

Q_SIGNALS:
    void changed();

private:
    QString name_;
    Range range;
    double value_;
};

} // namespace zelvo::ui
