// SPDX-License-Identifier: MIT
#pragma once

#include "platform/scene/SCNTransaction.h"

#include <memory>
#include <utility>

namespace zelvo::scene {

/// A property that can be animated by assigning to it inside a transaction.
///
/// The model value changes at once. What is drawn is the presented value, which outside a
/// transaction (or with duration 0) is the model value, and otherwise travels on the scene's clock
/// from what was presented at the time of the assignment. A later assignment supersedes a running
/// one from where it stands.
template <class T> class Animated {
public:
    Animated(T value) // NOLINT(google-explicit-constructor): stands for a plain value
        : model(value)
        , presentedValue(std::make_shared<T>(std::move(value))) {}

    // A copy is a property of its own: it takes the model value and leaves running animations
    // behind.
    Animated(const Animated& other)
        : Animated(other.model) {}

    Animated& operator=(const Animated& other) {
        if (this != &other)
            *this = other.model;
        return *this;
    }

    Animated& operator=(T value) {
        model = value;
        if (!SCNTransaction::isAnimating()) { // the common case allocates nothing
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
    std::shared_ptr<T>
        presentedValue; ///< shared with running animations, which may outlive the property
    std::shared_ptr<int> generation = std::make_shared<int>(0); ///< raised by each assignment
};

} // namespace zelvo::scene
