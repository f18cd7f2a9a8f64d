// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include <optional>

namespace zelvo::ui {

/// Two wheels for minutes and seconds. Durations under two seconds cannot be chosen.
class TimePickerView final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(int minutes READ minutes NOTIFY changed)
    Q_PROPERTY(int seconds READ seconds NOTIFY changed)
    Q_PROPERTY(int rows READ rows CONSTANT)

public:
    static constexpr int kRows = 60; ///< of each wheel
    static constexpr int kMinSeconds = 2;

    /// The components 0 and 1.
    enum Wheel { minutesWheel, secondsWheel };

    /// Starts at a duration in seconds, without its hours.
    explicit TimePickerView(double duration, QObject* parent = nullptr);

    [[nodiscard]] int minutes() const { return minutes_; }

    [[nodiscard]] int seconds() const { return seconds_; }

    [[nodiscard]] static int rows() { return kRows; }

    /// The chosen duration in seconds.
    [[nodiscard]] double duration() const { return minutes_ * 60.0 + seconds_; }

    /// The wheel `component` stopped at `row`; the row is clamped.
    Q_INVOKABLE void select(int component, int row);
    /// A typed digit, 0 to 9: the first one starts a number, the second one completes it.
    Q_INVOKABLE void type(int component, int digit);

Q_SIGNALS:
    void changed();

private:
    struct Typed {
        int component;
        int digit;
    };

    int minutes_;
    int seconds_;
    std::optional<Typed> typed; ///< the first digit of a number
};

} // namespace zelvo::ui
