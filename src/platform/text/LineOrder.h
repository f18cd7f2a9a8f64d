// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace zelvo::text {

/// The way a character runs, and where it stands.
struct CharacterOrder {
    /// Embedding level (UAX #9): an odd one runs from right to left. Neighbours of one level stay
    /// neighbours on the line.
    int level = 0;
    std::size_t place = 0; ///< on the line, from the left
};

/// Orders the characters of a line that runs from left to right as a whole, by the bidirectional
/// algorithm (UAX #9). One entry per character.
[[nodiscard]] std::vector<CharacterOrder> orderOf(std::u32string_view characters);

} // namespace zelvo::text
