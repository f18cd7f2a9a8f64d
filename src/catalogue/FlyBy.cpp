// SPDX-License-Identifier: MIT
// Tab FLY: fly-throughs. The nodes end off stage and stay there until the next action.
#include "catalogue/BuildingBlocks.h"
#include "catalogue/CommonForm.h"
#include "catalogue/Tabs.h"

#include <array>
#include <optional>

namespace zelvo::catalogue {

namespace {

/// A rotation around x; the other two angles do not change.
struct Roll {
    float fromX, toX, y, z;
};

constexpr std::optional<Roll> kNoRoll;
constexpr std::optional<Roll> kForwardRoll = Roll{60, -60, -12, 12};
constexpr std::optional<Roll> kSomersault = Roll{150, -100, -10, -35};

struct PassRow {
    std::string_view label;
    std::string_view title;
    double factor;
    glm::vec3 start;
    glm::vec3 end;
    std::optional<Roll> roll;
};

// clang-format off
constexpr auto kPasses = std::to_array<PassRow>({
    {"Pass Right", "Pass Right",      0.55, {-900, 0, 0},       {900, 0, 0},       kNoRoll     },
    {"Pass Left",  "Pass Left",       0.55, {900, 0, 0},        {-900, 0, 0},      kNoRoll     },
    {"Pass Down",  "Pass Down",       0.8,  {0, 900, 0},        {0, -900, 0},      kNoRoll     },
    {"Pass Up",    "Pass Up",         0.8,  {0, -900, 0},       {0, 900, 0},       kNoRoll     },
    {"Pass LR",    "Pass Left Right", 0.9,  {-900, -250, -300}, {900, 250, 300},   kForwardRoll},
    {"Pass RL",    "Pass Right Left", 1.1,  {900, -700, 200},   {-900, 700, -200}, kSomersault },
});

// clang-format on

void pass(const Take& take, const PassRow& row) {
    for (const node::NodePtr& node : take.nodes) {
        moveFromTo(*node, row.start, row.end, {take.d});
        if (!row.roll)
            continue;
        const Roll& roll = *row.roll;
        rotateFromTo(*node, {roll.fromX, roll.y, roll.z}, {roll.toX, roll.y, roll.z}, {take.d});
    }
}

} // namespace

std::vector<Button> showFlyBy() {
    std::vector<Button> buttons;
    buttons.reserve(kPasses.size());
    for (const PassRow& row : kPasses) {
        buttons.push_back(commonButton(
            {.face = {.label = row.label}, .title = row.title, .factor = row.factor},
            [row](const Take& take) { pass(take, row); }));
    }
    return buttons;
}

} // namespace zelvo::catalogue
