// SPDX-License-Identifier: MIT
// Tab OT1: straight exits. Picture and title show where the node goes. It starts slowly and gets
// faster.
#include "catalogue/StraightMoves.h"
#include "catalogue/Tabs.h"

#include <array>

namespace zelvo::catalogue {

namespace {

constexpr Curve kCurve = bezier(0.3f, 0.0f, 0.35f, 0.0f);

// clang-format off
constexpr auto kRows = std::to_array<StraightRow>({
    {"PositionLeft",  "Left Out",  {-800, 0, 0}},
    {"PositionRight", "Right Out", {800, 0, 0} },
    {"PositionUp",    "Up Out",    {0, 800, 0} },
    {"PositionDown",  "Down Out",  {0, -800, 0}},
    {"PositionBack",  "Back Out",  {0, 0, -800}},
    {"PositionFront", "Front Out", {0, 0, 800} },
});
// clang-format on

} // namespace

std::vector<Button> showOut1() {
    return straightButtons(kRows, Direction::out, kCurve);
}

} // namespace zelvo::catalogue
