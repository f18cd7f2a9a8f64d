// SPDX-License-Identifier: MIT
#pragma once

#include "catalogue/BuildingBlocks.h"
#include "catalogue/CommonForm.h"

#include <span>

namespace zelvo::catalogue {

/// A move in a straight line between home and a place off stage, over the base duration.
struct StraightRow {
    std::string_view image;
    std::string_view title;
    glm::vec3 offStage;
};

enum class Direction { in, out };

[[nodiscard]] std::vector<Button>
straightButtons(std::span<const StraightRow> rows, Direction direction, const Curve& timing);

} // namespace zelvo::catalogue
