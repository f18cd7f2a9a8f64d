// SPDX-License-Identifier: MIT
// Tab IN1: straight entrances. The picture shows the direction of the move, the title says where it
// comes from.
#include "catalogue/StraightMoves.h"
#include "catalogue/Tabs.h"

#include <array>

namespace zelvo::catalogue {

namespace {

constexpr Curve kCurve = bezier(0.61f, 0.81f, 0.57f, 0.98f);

// clang-format off
constexpr auto kRows = std::to_array<StraightRow>({
    {"PositionRight", "Left In",  {-800, 0, 0}},
    {"PositionLeft",  "Right In", {800, 0, 0} },
    {"PositionDown",  "Down In",  {0, 800, 0} },
    {"PositionUp",    "Up In",    {0, -800, 0}},
    {"PositionFront", "Back In",  {0, 0, -800}},
    {"PositionBack",  "Front In", {0, 0, 800} },
});
// clang-format on

} // namespace

std::vector<Button> showIn1() {
    return straightButtons(kRows, Direction::in, kCurve);
}

} // namespace zelvo::catalogue
