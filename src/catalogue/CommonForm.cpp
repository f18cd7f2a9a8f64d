// SPDX-License-Identifier: MIT
#include "catalogue/CommonForm.h"

#include "actions/ActionController.h"

#include <memory>
#include <utility>

namespace zelvo::catalogue {

namespace {

using actions::ActionController;

void press(const PressContext& context, const Row& row, const Body& body) {
    if (context.affectedNodes.empty())
        return;
    auto take = std::make_shared<const Take>(Take{
        .stage = context.controller.nodes,
        .nodes = context.affectedNodes,
        .d = row.factor * context.animationFactor,
        .timing = row.timing.timing(),
        .restTiming = row.restTiming.timing(),
    });
    const std::string title = ActionController::describe(row.title, take->nodes);
    context.controller.addAction(
        [take = std::move(take), body] {
            ActionController::resetNodes(take->nodes);
            body(*take);
        },
        context.controller.newIdentifier(),
        title,
        actions::RegisterUndo::yes);
}

} // namespace

Button commonButton(const Row& row, Body body) {
    return {
        .face = row.face,
        .title = row.title,
        .beganFunc = [row, body = std::move(body)](
                         const PressContext& context) { press(context, row, body); },
        .endFunc = {},
    };
}

std::vector<Button> commonButtons(std::span<const Row> rows) {
    std::vector<Button> buttons;
    buttons.reserve(rows.size());
    for (const Row& row : rows) {
        buttons.push_back(commonButton(row, row.body));
    }
    return buttons;
}

} // namespace zelvo::catalogue
