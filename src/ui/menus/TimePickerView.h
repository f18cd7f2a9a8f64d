// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include <optional>

namespace zelvo::ui {

/// Two wheels, minutes and seconds, of which neither lets a duration under two seconds be picked.
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

    /// Component 0 and 1.
    enum Wheel { minutesWheel, secondsWheel };

    /// Of a duration in seconds, its hours left out.
    explicit TimePickerView(double duration, QObject* parent = nullptr);

    [[nodiscard]] int minutes() const { return minutes_; }

    [[nodiscard]] int seconds() const { return seconds_; }

    [[nodiscard]] static int rows() { return kRows; }

    /// What the wheels stand at, in seconds.
    [[nodiscard]] double duration() const { return minutes_ * 60.0 + seconds_; }

    /// The wheel `component` came to rest at `row`. A row that no wheel has is held to the nearest.
    Q_INVOKABLE void select(int component, int row);
    /// A digit, 0 to 9, for the wheel: the first begins a number, a second one completes it.
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
    std::optional<Typed> typed; ///< a first digit
};

} // namespace zelvo::ui
