// SPDX-License-Identifier: MIT
#include "platform/text/LineOrder.h"

#include <fribidi.h>

namespace zelvo::text {

std::vector<CharacterOrder> orderOf(std::u32string_view characters) {
    const std::size_t count = characters.size();
    const auto length = static_cast<FriBidiStrIndex>(count);
    const std::vector<FriBidiChar> string(characters.begin(), characters.end());
    std::vector<FriBidiCharType> types(count);
    std::vector<FriBidiBracketType> brackets(count);
    std::vector<FriBidiLevel> levels(count);
    std::vector<FriBidiStrIndex> logical(count); // by place
    std::vector<CharacterOrder> order(count);
    for (std::size_t i = 0; i < count; ++i) {
        logical[i] = static_cast<FriBidiStrIndex>(i);
    }
    fribidi_get_bidi_types(string.data(), length, types.data());
    fribidi_get_bracket_types(string.data(), length, types.data(), brackets.data());
    FriBidiParType direction = FRIBIDI_PAR_ON; // the first letter decides
    const bool isOrdered =
        count > 0 &&
        fribidi_get_par_embedding_levels_ex(
            types.data(), brackets.data(), length, &direction, levels.data()) != 0 &&
        fribidi_reorder_line(
            0, types.data(), length, 0, direction, levels.data(), nullptr, logical.data()) != 0;
    if (!isOrdered) { // out of memory
        levels.assign(count, 0);
    }
    for (std::size_t place = 0; place < count; ++place) {
        const auto index = isOrdered ? static_cast<std::size_t>(logical[place]) : place;
        order[index] = {.level = levels[index], .place = place};
    }
    return order;
}

} // namespace zelvo::text
