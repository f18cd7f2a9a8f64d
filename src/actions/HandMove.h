// SPDX-License-Identifier: MIT
#pragma once

#include <glm/vec2.hpp>

#include <cstdint>
#include <memory>
#include <string>
#include <variant>
#include <vector>

namespace zelvo::actions {

// What the user's hand did to make a record. A record's callback cannot be written to a file; this
// can, and doing it again makes the same record.

/// The state of a recognised gesture.
enum class GestureState { began, changed, ended, cancelled };

/// A button of the catalogue was pressed.
struct ButtonPress {
    std::string tab;                ///< short title
    std::string title;              ///< of the button, as in the history
    std::vector<std::string> nodes; ///< short names of the chosen nodes
    double animationFactor = 0;     ///< seconds: the base duration at this press
    std::uint32_t seed = 0;         ///< of the random numbers drawn by the press
};

/// A held button was released.
struct ButtonRelease {
    std::vector<std::string> nodes; ///< short names of the nodes chosen by then
    double animationFactor = 0;     ///< seconds
};

/// One finger, or the mouse with a pressed button.
struct PanTouch {
    GestureState state{};
    glm::vec2 location{0};      ///< points of the scene's view, x right, y down
    glm::vec2 previous{0};      ///< the location before; for `changed`
    double animationFactor = 0; ///< seconds; for `ended` and `cancelled`
};

/// Two fingers.
struct PinchTouch {
    GestureState state{};
    float velocity = 0;         ///< scale factors per second
    double animationFactor = 0; ///< seconds; for `ended`
};

struct DoubleTap {};

using HandMove = std::variant<ButtonPress, ButtonRelease, PanTouch, PinchTouch, DoubleTap>;
using HandMovePtr = std::shared_ptr<const HandMove>;

} // namespace zelvo::actions
