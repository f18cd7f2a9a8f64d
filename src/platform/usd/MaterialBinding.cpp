// SPDX-License-Identifier: MIT
#include "platform/usd/MaterialBinding.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace zelvo::usd {
namespace {

// In the order of preference.
constexpr std::array<std::string_view, 3> kBindings{
    "material:binding:preview", "material:binding", "material:binding:full"};

std::string bindingOf(const Prim& prim, std::string_view name) {
    const auto targets = prim.targets(name);
    return targets.empty() ? std::string() : targets.front();
}

} // namespace

std::string boundMaterial(const Prim& prim) {
    for (const std::string_view name : kBindings) {
        std::string bound;
        for (const Prim* at = &prim; at != nullptr; at = at->parent) {
            std::string own = bindingOf(*at, name);
            const bool isStronger = at->bindMaterialAs(name) == "strongerThanDescendants";
            if (!own.empty() && (bound.empty() || isStronger))
                bound = std::move(own);
        }
        if (!bound.empty())
            return bound;
    }
    return {};
}

bool bindsMaterial(const Prim& prim) {
    return std::ranges::any_of(
        kBindings, [&prim](std::string_view name) { return !bindingOf(prim, name).empty(); });
}

} // namespace zelvo::usd
