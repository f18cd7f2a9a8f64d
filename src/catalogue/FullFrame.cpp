// SPDX-License-Identifier: MIT
// Tab FX1: held full-frame effects and hiding. Also the only held effect of tab FX3.
#include "catalogue/FullFrame.h"

#include "actions/ActionController.h"
#include "catalogue/BuildingBlocks.h"
#include "catalogue/Tabs.h"

#include <array>
#include <memory>
#include <optional>
#include <string>

namespace zelvo::catalogue {

namespace {

using actions::ActionController;
using actions::RegisterUndo;
using actions::Techniques;

struct TechniqueRow {
    std::string_view label;
    std::string_view technique;
    std::string_view title;
};

// clang-format off
constexpr auto kTechniques = std::to_array<TechniqueRow>({
    {"Blur",     "Blur",       "Blur"      },
    {"Invert",   "Invert",     "Invert"    },
    {"Expo",     "Exposure",   "Exposure"  },
    {"Tiles",    "Tiles",      "Tiles"     },
    {"ColShift", "ColorShift", "ColorShift"},
});
// clang-format on

constexpr glm::vec3 kOutOfView{10000, 10000, 0};

Button techniqueButton(const Face& face, std::string_view technique, std::string_view title) {
    const auto box = std::make_shared<std::optional<Techniques::Hold>>();
    return {
        .face = face,
        .title = title,
        .beganFunc =
            [=](const PressContext& context) {
                *box = context.controller.techniques.beginTechnique(technique, title);
            },
        .endFunc =
            [=](const PressContext& context) {
                if (*box)
                    context.controller.techniques.endTechnique(**box);
                box->reset();
            }};
}

/// An action that moves the shyNode of each node to a place at once.
std::function<void()> shyTo(const std::vector<node::NodePtr>& nodes, const glm::vec3& place) {
    return [nodes, place] {
        for (const node::NodePtr& node : nodes)
            node->shyNode->runAction(moveTo(place));
    };
}

Button hideButton() {
    const auto box = std::make_shared<int>(0);
    return {
        .face = {.label = "Hide"},
        .title = "Hide",
        .beganFunc =
            [box](const PressContext& context) {
                *box = context.controller.newIdentifier();
                if (context.affectedNodes.empty())
                    return;
                context.controller.addAction(
                    shyTo(context.affectedNodes, kOutOfView),
                    *box,
                    ActionController::describe("Hide", context.affectedNodes),
                    RegisterUndo::yes);
            },
        .endFunc =
            [box](const PressContext& context) {
                context.controller.addAction(
                    shyTo(context.affectedNodes, kHome), *box, "", RegisterUndo::no);
            }};
}

} // namespace

Button glitchButton(const Face& face) {
    return techniqueButton(face, "Glitch", "Wobble");
}

std::vector<Button> showFX1() {
    std::vector<Button> buttons;
    buttons.reserve(kTechniques.size() + 1);
    for (const TechniqueRow& row : kTechniques)
        buttons.push_back(techniqueButton({.label = row.label}, row.technique, row.title));
    buttons.push_back(hideButton());
    return buttons;
}

} // namespace zelvo::catalogue
