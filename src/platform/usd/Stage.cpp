// SPDX-License-Identifier: MIT
#include "platform/usd/Stage.h"

#include <fmt/format.h>

#include <algorithm>
#include <unordered_set>

namespace zelvo::usd {

using foundation::Cause;
using foundation::fail;
using foundation::Result;

namespace {

/// In the order of the weakest layer first.
std::vector<std::string> childNames(const std::vector<Site>& sites) {
    std::vector<std::string> names;
    std::unordered_set<std::string_view> there;
    for (auto site = sites.rbegin(); site != sites.rend(); ++site) {
        for (const auto& child : site->spec->children.all()) {
            if (there.insert(child->name).second)
                names.push_back(child->name);
        }
    }
    return names;
}

/// What the strongest site says that says anything.
void resolveFields(Prim& prim) {
    for (const Site& site : prim.sites) {
        if (prim.typeName.empty())
            prim.typeName = site.spec->typeName;
    }
    const auto definite = std::ranges::find_if(
        prim.sites, [](const Site& site) { return site.spec->specifier != Specifier::over; });
    prim.isDefined = definite != prim.sites.end() && definite->spec->specifier == Specifier::def;
}

bool isActive(const std::vector<Site>& sites) {
    for (const Site& site : sites) {
        if (site.spec->isActive)
            return *site.spec->isActive;
    }
    return true;
}

} // namespace

Result<std::unique_ptr<Stage>> Stage::open(std::unique_ptr<Assets> assets, const Limits& limits) {
    std::unique_ptr<Stage> stage(new Stage(std::move(assets), limits));
    const auto layer = stage->assets_->layer(stage->assets_->rootLayer());
    if (!layer)
        return tl::unexpected(layer.error());
    stage->rootLayer_ = *layer;
    const auto root = stage->composition.root();
    stage->root_.path = '/';
    stage->root_.isDefined = true;
    stage->fill(stage->root_, *root, 0);
    if (stage->isTooLarge || stage->composition.isBudgetUsedUp())
        return fail(Cause::tooLarge, "it has too many objects");
    return stage;
}

void Stage::fill(Prim& prim, const CompositionNode& node, int depth) {
    prim.sites = Composition::sitesOf(node);
    isTooLarge = isTooLarge || depth > kMaxDepth;
    if (depth > 0)
        resolveFields(prim);
    if (isTooLarge || !isActive(prim.sites))
        return;
    for (const std::string& name : childNames(prim.sites)) {
        const auto below = composition.child(node, name);
        isTooLarge = isTooLarge || !primBudget.take(1);
        if (isTooLarge || composition.isBudgetUsedUp())
            return;
        if (below == nullptr)
            continue;
        auto child = std::make_unique<Prim>();
        child->name = name;
        child->path = fmt::format("{}/{}", prim.path == "/" ? "" : prim.path, name);
        child->parent = &prim;
        fill(*child, *below, depth + 1);
        if (!isActive(child->sites))
            continue;
        byPath[child->path] = child.get();
        prim.children.push_back(std::move(child));
    }
}

const Prim* Stage::at(std::string_view path) const {
    const auto found = byPath.find(std::string(path));
    return found == byPath.end() ? nullptr : found->second;
}

Prim::Found Prim::find(std::string_view attribute) const {
    Found sample;
    for (const Site& site : sites) {
        const PropertySpec* property = site.spec->properties.find(attribute);
        if (property == nullptr)
            continue;
        if (sample.opinion == nullptr && property->firstSample.isAuthored())
            sample = {&property->firstSample, &site};
        if (!property->value.isAuthored())
            continue;
        // A block hides what weaker layers say.
        if (property->value.isBlocked())
            return sample;
        return {&property->value, &site};
    }
    return sample;
}

ValuePtr Prim::value(std::string_view attribute) const {
    const Found found = find(attribute);
    return found.opinion == nullptr ? nullptr : found.opinion->value();
}

AssetId Prim::layerOf(std::string_view attribute) const {
    const Found found = find(attribute);
    return found.site == nullptr ? AssetId() : found.site->layer;
}

std::optional<double> Prim::number(std::string_view attribute) const {
    const Numbers held = numbers(attribute, 1);
    return held.empty() ? std::nullopt : std::optional(held.front());
}

Numbers Prim::numbers(std::string_view attribute, std::size_t count) const {
    const ValuePtr held = value(attribute);
    if (held == nullptr)
        return {};
    Numbers result;
    if (const auto* plain = std::get_if<Numbers>(held.get())) {
        result = *plain;
    } else if (const auto* array = std::get_if<FloatArray>(held.get())) {
        result.assign(array->values.begin(), array->values.end());
    } else if (const auto* whole = std::get_if<IntArray>(held.get())) {
        result.assign(whole->begin(), whole->end());
    }
    return result.size() < count ? Numbers() : result;
}

std::string Prim::text(std::string_view attribute) const {
    const ValuePtr held = value(attribute);
    const auto* plain = held == nullptr ? nullptr : std::get_if<std::string>(held.get());
    return plain == nullptr ? std::string() : *plain;
}

std::vector<std::string> Prim::texts(std::string_view attribute) const {
    const ValuePtr held = value(attribute);
    if (held == nullptr)
        return {};
    if (const auto* list = std::get_if<StringList>(held.get()))
        return *list;
    const auto* plain = std::get_if<std::string>(held.get());
    return plain == nullptr ? StringList() : StringList{*plain};
}

IntArray Prim::ints(std::string_view attribute) const {
    const ValuePtr held = value(attribute);
    if (held == nullptr)
        return {};
    if (const auto* whole = std::get_if<IntArray>(held.get()))
        return *whole;
    IntArray result;
    for (const double number : numbers(attribute, 1))
        result.push_back(static_cast<std::int32_t>(std::clamp(number, -2e9, 2e9)));
    return result;
}

std::shared_ptr<const FloatArray>
Prim::floats(std::string_view attribute, std::size_t width) const {
    ValuePtr held = value(attribute);
    if (held == nullptr)
        return nullptr;
    if (const auto* array = std::get_if<FloatArray>(held.get()))
        return array->width == width ? std::shared_ptr<const FloatArray>(held, array) : nullptr;
    auto made = std::make_shared<FloatArray>();
    made->width = width;
    // One value where an array of them is expected.
    for (const double number : numbers(attribute, width))
        made->values.push_back(static_cast<float>(number));
    const bool isWhole = !made->values.empty() && made->values.size() % width == 0;
    return isWhole ? std::move(made) : nullptr;
}

std::vector<std::string> Prim::targets(std::string_view property) const {
    std::vector<std::string> list;
    for (auto site = sites.rbegin(); site != sites.rend(); ++site) {
        const PropertySpec* spec = site->spec->properties.find(property);
        if (spec == nullptr || spec->targets.isEmpty())
            continue;
        ListOp<std::string> edit = spec->targets;
        for (auto* items :
             {&edit.explicitItems, &edit.added, &edit.prepended, &edit.appended, &edit.deleted}) {
            for (std::string& target : *items)
                target = site->paths->apply(target);
            std::erase(*items, std::string());
        }
        edit.applyTo(list);
    }
    return list;
}

std::string Prim::metadata(std::string_view property, std::string PropertySpec::*field) const {
    for (const Site& site : sites) {
        const PropertySpec* spec = site.spec->properties.find(property);
        if (spec != nullptr && !(spec->*field).empty())
            return spec->*field;
    }
    return {};
}

std::string Prim::interpolation(std::string_view attribute) const {
    return metadata(attribute, &PropertySpec::interpolation);
}

std::string Prim::bindMaterialAs(std::string_view relationship) const {
    return metadata(relationship, &PropertySpec::bindMaterialAs);
}

std::vector<std::string> Prim::namesBeginning(std::string_view start) const {
    std::vector<std::string> names;
    for (auto site = sites.rbegin(); site != sites.rend(); ++site) {
        for (const auto& property : site->spec->properties.all()) {
            if (property->name.starts_with(start) &&
                std::ranges::find(names, property->name) == names.end())
                names.push_back(property->name);
        }
    }
    return names;
}

} // namespace zelvo::usd
