// SPDX-License-Identifier: MIT
#include "catalogue/StraightMoves.h"

namespace zelvo::catalogue {

std::vector<Button>
straightButtons(std::span<const StraightRow> rows, Direction direction, const Curve& timing) {
    std::vector<Button> buttons;
    for (const StraightRow& row : rows) {
        const bool comesIn = direction == Direction::in;
        const glm::vec3 from = comesIn ? row.offStage : kHome;
        const glm::vec3 to = comesIn ? kHome : row.offStage;
        buttons.push_back(commonButton(
            {.face = {.image = row.image}, .title = row.title, .timing = timing},
            [from, to](const Take& take) {
                for (const core::NodePtr& node : take.nodes) {
                    moveFromTo(*node, from, to, {take.d, take.timing});
                }
            }));
    }
    return buttons;
}

} // namespace zelvo::catalogue
