// SPDX-License-Identifier: MIT
#include "platform/usd/ShaderNetwork.h"

#include <optional>
#include <string_view>

namespace zelvo::usd {
namespace {

constexpr int kLongestChain = 50;
constexpr std::string_view kOutputs = "outputs:";

std::optional<InputSource>
follow(const Stage& stage, const Prim& prim, const std::string& attribute, int depth) {
    if (depth > kLongestChain)
        return std::nullopt;
    for (const std::string& target : prim.targets(attribute)) {
        const std::size_t dot = target.rfind('.');
        const Prim* next = dot == std::string::npos ? nullptr : stage.at(target.substr(0, dot));
        if (next == nullptr)
            continue;
        const std::string property = target.substr(dot + 1);
        if (property.starts_with(kOutputs) && !shaderKind(*next).empty())
            return InputSource{next, property.substr(kOutputs.size()), nullptr, {}};
        if (auto found = follow(stage, *next, property, depth + 1))
            return found;
    }
    if (prim.value(attribute) == nullptr)
        return std::nullopt;
    return InputSource{nullptr, {}, &prim, attribute};
}

} // namespace

InputSource sourceOf(const Stage& stage, const Prim& prim, const std::string& attribute) {
    return follow(stage, prim, attribute, 0).value_or(InputSource());
}

std::string shaderKind(const Prim& prim) {
    return prim.text("info:id");
}

} // namespace zelvo::usd
