// SPDX-License-Identifier: MIT
#pragma once

#include "catalogue/BuildingBlocks.h"

#include <functional>

namespace zelvo::catalogue {

/// When the letters of a staggered animation start. The waits run on the letters themselves, so
/// that they follow the scene's clock. Seconds, whatever the speed setting.
struct Stagger {
    double perLetter = 0;
    double lead = 0; ///< before the first letter
};

enum class BeforeTurn {
    faded, ///< an entrance: unseen until it is the letter's turn
    asIs   ///< an exit
};

/// Starts a letter's own moves; `place` is where its text wants it.
using LetterMoves = std::function<void(content::CharNode& letter, const glm::vec3& place)>;

/// Lets the letters start one after another in the given order.
void staggerLetters(
    const Letters& letters, const Stagger& stagger, BeforeTurn before, const LetterMoves& moves);

/// The company of staggered letters: jumps to the start, waits, then travels.
void moveAfterWait(
    const std::vector<core::NodePtr>& nodes,
    const glm::vec3& from,
    const glm::vec3& to,
    double wait,
    const Pace& pace);

} // namespace zelvo::catalogue
