// SPDX-License-Identifier: MIT
#pragma once

#include "platform/scene/SCNTransaction.h"

#include <memory>
#include <utility>

namespace zelvo::scene {

/// A property that can be animated: assign to it inside a transaction.
///
/// The model value changes at once. The presented value is the one that is drawn. Inside a
/// transaction with a duration it moves to the new value, on the scene's clock; otherwise it
/// changes at once, too. A new assignment stops a running animation and starts from the value
/// presented then.
template <class T> class Animated {
public:
    Animated(T value) // NOLINT(google-explicit-constructor): stands for a plain value
        : model(value)
        , presentedValue(std::make_shared<T>(std::move(value))) {}

    // A copy takes the model value only; running animations stay with the original.
    Animated(const Animated& other)
        : Animated(other.model) {}

    Animated& operator=(const Animated& other) {
        if (this != &other)
            *this = other.model;
        return *this;
    }

    Animated& operator=(T value) {
        model = value;
        if (!SCNTransaction::isAnimating()) { // most assignments; must not allocate memory
            ++*generation;
            *presentedValue = std::move(value);
            return *this;
        }
        SCNTransaction::animate(
            generation,
            [presented = presentedValue, from = *presentedValue, to = value](float progress) {
                *presented = progress >= 1 ? to : static_cast<T>(from + (to - from) * progress);
            });
        return *this;
    }

    operator T() const { return model; } // NOLINT(google-explicit-constructor)

    [[nodiscard]] const T& value() const { return model; }

    [[nodiscard]] const T& presented() const { return *presentedValue; }

private:
    T model;
    /// Shared with running animations, which can live longer than the property.
    std::shared_ptr<T> presentedValue;
    std::shared_ptr<int> generation = std::make_shared<int>(0); ///< incremented by each assignment
};

} // namespace zelvo::scene
