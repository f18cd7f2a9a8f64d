// SPDX-License-Identifier: MIT
#include "catalogue/StraightMoves.h"

namespace zelvo::catalogue {

namespace {

Button straightButton(const StraightRow& row, Direction direction, const Curve& timing) {
    const bool comesIn = direction == Direction::in;
    const glm::vec3 from = comesIn ? row.offStage : kHome;
    const glm::vec3 to = comesIn ? kHome : row.offStage;
    return commonButton(
        {.face = {.image = row.image}, .title = row.title, .timing = timing},
        [from, to](const Take& take) {
            for (const node::NodePtr& node : take.nodes)
                moveFromTo(*node, from, to, {take.d, take.timing});
        });
}

} // namespace

std::vector<Button>
straightButtons(std::span<const StraightRow> rows, Direction direction, const Curve& timing) {
    std::vector<Button> buttons;
    buttons.reserve(rows.size());
    for (const StraightRow& row : rows)
        buttons.push_back(straightButton(row, direction, timing));
    return buttons;
}

} // namespace zelvo::catalogue
