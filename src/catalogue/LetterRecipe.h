// SPDX-License-Identifier: MIT
#pragma once

#include "catalogue/BuildingBlocks.h"

#include <functional>

namespace zelvo::catalogue {

/// The start times of letters. Letters wait by actions of their own, so they follow the scene's
/// clock. In seconds; the speed setting has no effect.
struct Stagger {
    double perLetter = 0;
    double lead = 0; ///< wait before the first letter
};

enum class BeforeTurn {
    faded, ///< for an entrance: invisible until the letter starts
    asIs   ///< for an exit
};

/// Starts the moves of one letter; `place` is its place in the text.
using LetterMoves = std::function<void(content::CharNode& letter, const glm::vec3& place)>;

/// Starts the letters one after another in the given order.
void staggerLetters(
    const Letters& letters, const Stagger& stagger, BeforeTurn before, const LetterMoves& moves);

/// For nodes that move together with staggered letters: jumps to the start, waits, then moves.
void moveAfterWait(
    const std::vector<node::NodePtr>& nodes,
    const glm::vec3& from,
    const glm::vec3& to,
    double wait,
    const Pace& pace);

} // namespace zelvo::catalogue
