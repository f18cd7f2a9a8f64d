// SPDX-License-Identifier: MIT
// Tab ROT: half turns of the whole stage. They add up and stay until the stage is reset.
#include "actions/ActionController.h"
#include "catalogue/BuildingBlocks.h"
#include "catalogue/Curve.h"
#include "catalogue/Tabs.h"

#include <array>
#include <string>

namespace zelvo::catalogue {

namespace {

using stage::MediaholderNode;

struct RotationRow {
    std::string_view image;
    std::string_view title;
    node::DefaultSCNNodePtr const MediaholderNode::*axisNode;
    Degrees turn;
};

constexpr Curve kTurn = bezier(1.0f, 0.0f, 0.18f, 1.0f);

// clang-format off
constexpr auto kRows = std::to_array<RotationRow>({
    {"RotateLeft",   "Rotate Y -180", &MediaholderNode::yAxisNode, {0, -180, 0}},
    {"RotateRight",  "Rotate Y 180",  &MediaholderNode::yAxisNode, {0, 180, 0} },
    {"RotateTop",    "Rotate X -180", &MediaholderNode::xAxisNode, {-180, 0, 0}},
    {"RotateBottom", "Rotate X 180",  &MediaholderNode::xAxisNode, {180, 0, 0} },
    {"RotateZ",      "Rotate Z -180", &MediaholderNode::zAxisNode, {0, 0, -180}},
    {"RotateMinZ",   "Rotate Z 180",  &MediaholderNode::zAxisNode, {0, 0, 180} },
});

// clang-format on

void press(const PressContext& context, const RotationRow& row) {
    actions::ActionController& controller = context.controller;
    const auto turn =
        scene::SCNAction::rotateBy(row.turn.radians(), context.animationFactor, kTurn.timing());
    controller.addAction(
        [node = (*controller.nodes.mediaHolderNode).*row.axisNode, turn] { node->runAction(turn); },
        controller.newIdentifier(),
        std::string(row.title),
        actions::RegisterUndo::yes);
}

} // namespace

std::vector<Button> showRot() {
    std::vector<Button> buttons;
    buttons.reserve(kRows.size());
    for (const RotationRow& row : kRows) {
        buttons.push_back(
            {.face = {.image = row.image},
             .title = row.title,
             .beganFunc = [&row](const PressContext& context) { press(context, row); },
             .endFunc = {}});
    }
    return buttons;
}

} // namespace zelvo::catalogue
