// SPDX-License-Identifier: MIT
#include "platform/usd/LayerStack.h"

#include <fmt/format.h>

#include <algorithm>

namespace zelvo::usd {

void Warnings::add(std::string line) {
    constexpr std::size_t kMost = 100;
    if (lines_.size() < kMost && std::ranges::find(lines_, line) == lines_.end())
        lines_.push_back(std::move(line));
}

std::string LayerStack::defaultPrim() const {
    const Layer& root = *members.front().layer;
    if (!root.defaultPrim.empty())
        return fmt::format("/{}", root.defaultPrim.substr(root.defaultPrim.front() == '/' ? 1 : 0));
    // Exporters that leave it out mean the first one.
    const auto& prims = root.root.children.all();
    return prims.empty() ? std::string() : fmt::format("/{}", prims.front()->name);
}

void LayerStacks::add(LayerStack& stack, AssetId id, int depth) {
    const bool isThere =
        std::ranges::find(stack.members, id, &LayerStack::Member::id) != stack.members.end();
    if (isThere || depth > kMaxDepth)
        return;
    const auto layer = assets.layer(id);
    if (!layer) {
        warnings.add(layer.error().message);
        return;
    }
    stack.members.push_back({*layer, id});
    for (const std::string& path : (*layer)->subLayers) {
        if (const auto sub = assets.resolve(path, id)) {
            add(stack, *sub, depth + 1);
        } else {
            warnings.add(fmt::format("the layer {} is missing", path));
        }
    }
}

const LayerStack* LayerStacks::open(AssetId layer) {
    auto& stack = stacks[layer];
    if (stack == nullptr) {
        stack = std::make_unique<LayerStack>();
        add(*stack, layer, 0);
    }
    return stack->members.empty() ? nullptr : stack.get();
}

} // namespace zelvo::usd
