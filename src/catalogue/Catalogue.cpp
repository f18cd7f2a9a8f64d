// SPDX-License-Identifier: MIT
#include "catalogue/Catalogue.h"

#include "actions/ActionController.h"
#include "catalogue/Tabs.h"

#include <algorithm>
#include <string>
#include <utility>

namespace zelvo::catalogue {

std::span<const Tab> tabs() {
    return kTabs;
}

namespace {

[[nodiscard]] std::vector<std::string> namesOf(const std::vector<node::NodePtr>& nodes) {
    std::vector<std::string> names;
    names.reserve(nodes.size());
    for (const node::NodePtr& node : nodes)
        names.push_back(node->shortName);
    return names;
}

} // namespace

void press(const Tab& tab, const Button& button, const PressContext& context, std::uint32_t seed) {
    actions::ButtonPress move{
        .tab = std::string(tab.shortTitle),
        .title = std::string(button.title),
        .nodes = namesOf(context.affectedNodes),
        .animationFactor = context.animationFactor,
        .seed = seed};
    context.controller.perform(std::move(move), [&] { button.beganFunc(context); });
}

void release(const Button& button, const PressContext& context) {
    context.controller.perform(
        actions::ButtonRelease{namesOf(context.affectedNodes), context.animationFactor},
        [&] { button.endFunc(context); });
}

const Tab* tabNamed(std::string_view shortTitle) {
    const auto* const found = std::ranges::find(kTabs, shortTitle, &Tab::shortTitle);
    return found == kTabs.end() ? nullptr : &*found;
}

std::optional<Group> groupOf(std::string_view shortTitle) {
    const Tab* const tab = tabNamed(shortTitle);
    return tab == nullptr ? std::nullopt : std::optional(tab->group);
}

} // namespace zelvo::catalogue
