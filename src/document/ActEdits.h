// SPDX-License-Identifier: MIT
#pragma once

#include "model/Model.h"

#include <optional>
#include <set>
#include <string>
#include <vector>

namespace zelvo::document {

// The acts of a performance, and changes to them after they were performed. Each change is one step
// of undo. Times are seconds of the performance; they are negative in the count-in.

enum class ActKind {
    press,
    hold, ///< of a button that acts until it is released
    drag,
    pinch,
    center ///< a double tap
};

/// What the hand did once: all records with one identifier.
struct Act {
    int identifier = 0;
    ActKind kind{};
    double begins = 0;
    double ends = 0;                  ///< of a press: as `begins`
    std::string title;                ///< as in the history
    std::string tab{};                ///< short title; empty: a gesture
    std::string button{};             ///< title of the button; empty: a gesture
    std::vector<std::string> nodes{}; ///< short names; of a gesture: none
    /// Of a button; of a gesture: none.
    std::optional<model::AnimationRatio> speed{};
    bool isReleased = true; ///< false: nothing ends it
};

using Identifiers = std::set<int>;

/// All acts that the hand did, by their begin.
[[nodiscard]] std::vector<Act> actsOf(const model::Model& model);

/// Moves all records of the acts by the same time. It is made smaller where an act would begin before
/// the count-in.
void moveActs(model::Model& model, const Identifiers& which, double by);

/// Releases a held button at another time, at the earliest one frame after its press. One that was never
/// released is released then. Does nothing with other acts.
void endActAt(model::Model& model, int identifier, double time);

void removeActs(model::Model& model, const Identifiers& which);

/// Does the acts a second time, so much later. Returns the copies.
Identifiers duplicateActs(model::Model& model, const Identifiers& which, double by);

/// Gives presses of buttons another speed. Does nothing with gestures.
void setSpeedOfActs(model::Model& model, const Identifiers& which, model::AnimationRatio speed);

} // namespace zelvo::document
