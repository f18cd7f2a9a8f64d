// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace zelvo::text {

/// The direction and the place of a character.
struct CharacterOrder {
    /// Embedding level (UAX #9); odd means right to left. Neighbours with the same level are
    /// neighbours on the line, too.
    int level = 0;
    std::size_t place = 0; ///< on the line, from the left
};

/// Orders the characters of a line by the bidirectional algorithm (UAX #9). As in text fields, the
/// line has the direction of its first letter. Returns one entry for each character.
[[nodiscard]] std::vector<CharacterOrder> orderOf(std::u32string_view characters);

} // namespace zelvo::text
