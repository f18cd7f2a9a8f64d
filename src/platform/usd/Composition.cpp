// SPDX-License-Identifier: MIT
#include "platform/usd/Composition.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>
#include <tuple>
#include <utility>

namespace zelvo::usd {
namespace {

constexpr int kLongestTrail = 50;

/// A reference with the file that it means, because layers of several folders edit one list.
struct Resolved {
    bool isHere = true;          ///< in the same layer stack
    std::optional<AssetId> file; ///< nothing if it is missing
    std::string prim;

    bool operator==(const Resolved&) const = default;

    friend bool operator<(const Resolved& a, const Resolved& b) {
        return std::tie(a.isHere, a.file, a.prim) < std::tie(b.isHere, b.file, b.prim);
    }
};

/// Edits the list by what every site says, weakest first. `converted` makes an item of the list.
template <class Item, class Field, class Convert>
std::vector<Item>
editedList(const std::vector<Site>& sites, ListOp<Field> PrimSpec::*field, Convert converted) {
    std::vector<Item> list;
    for (auto site = sites.rbegin(); site != sites.rend(); ++site) {
        const ListOp<Field>& edit = site->spec->*field;
        if (edit.isEmpty())
            continue;
        const auto convertAll = [&](const std::vector<Field>& items) {
            std::vector<Item> result;
            result.reserve(items.size());
            for (const Field& item : items)
                result.push_back(converted(item, *site));
            return result;
        };
        ListOp<Item> own;
        own.isExplicit = edit.isExplicit;
        own.explicitItems = convertAll(edit.explicitItems);
        own.added = convertAll(edit.added);
        own.prepended = convertAll(edit.prepended);
        own.appended = convertAll(edit.appended);
        own.deleted = convertAll(edit.deleted);
        own.applyTo(list);
    }
    return list;
}

std::string childPath(const std::string& path, const std::string& name) {
    return fmt::format("{}/{}", path == "/" ? "" : path, name);
}

/// The variant sets of a node in their order; also those that its list leaves out.
StringList variantSetsOf(const std::vector<Site>& sites) {
    auto names = editedList<std::string>(
        sites, &PrimSpec::variantSetNames, [](const std::string& name, const Site&) {
            return name;
        });
    for (const Site& site : sites) {
        for (const auto& set : site.spec->variantSets.all()) {
            if (std::ranges::find(names, set->name) == names.end())
                names.push_back(set->name);
        }
    }
    return names;
}

/// What the strongest place chooses; nothing if none does.
std::optional<std::string> selectionIn(const CompositionNode& node, const std::string& set) {
    for (const Site& site : node.sites) {
        const auto found = site.spec->variantSelections.find(set);
        if (found != site.spec->variantSelections.end())
            return found->second;
    }
    for (const auto& child : node.children) {
        if (auto selection = selectionIn(*child, set))
            return selection;
    }
    return std::nullopt;
}

void insert(CompositionNode& parent, CompositionNodePtr node) {
    const auto isStronger = [](const CompositionNodePtr& a, const CompositionNodePtr& b) {
        return a->arc != b->arc ? a->arc < b->arc : a->depth > b->depth;
    };
    const auto place = std::ranges::upper_bound(parent.children, node, isStronger);
    parent.children.insert(place, std::move(node));
}

void collect(
    const CompositionNode& node,
    std::vector<Site>& sites,
    std::vector<const CompositionNode*>& specialized) {
    sites.insert(sites.end(), node.sites.begin(), node.sites.end());
    for (const auto& child : node.children) {
        if (child->arc == Arc::specialize) {
            specialized.push_back(child.get());
        } else {
            collect(*child, sites, specialized);
        }
    }
}

} // namespace

CompositionNodePtr Composition::root() {
    const LayerStack* stack = stacks.open(assets.rootLayer());
    if (stack == nullptr)
        return nullptr;
    auto node = std::make_unique<CompositionNode>();
    node->stack = stack;
    node->path = '/';
    node->map = std::make_shared<PathMap>(PathMap{node->path, node->path, false, nullptr});
    for (const auto& member : stack->members)
        node->sites.push_back({&member.layer->root, member.id, node->map});
    return node;
}

CompositionNodePtr Composition::child(const CompositionNode& parent, const std::string& name) {
    auto node = derived(parent, name);
    if (node == nullptr)
        return nullptr;
    const auto depth = static_cast<int>(std::ranges::count(node->path, '/'));
    expand(*node, nullptr, depth);
    chooseVariants(*node, nullptr, depth);
    return node;
}

std::vector<Site> Composition::sitesOf(const CompositionNode& node) {
    std::vector<Site> sites;
    std::vector<const CompositionNode*> specialized;
    collect(node, sites, specialized);
    // The weakest of all, wherever they stand. The list grows while it is worked off.
    for (std::size_t i = 0; i < specialized.size(); ++i)
        collect(*specialized[i], sites, specialized);
    return sites;
}

/// The same tree, one step down. Places that do not speak about the child are left out.
CompositionNodePtr Composition::derived(const CompositionNode& parent, const std::string& name) {
    if (!siteBudget.take(1)) {
        isUsedUp = true;
        return nullptr;
    }
    auto node = std::make_unique<CompositionNode>();
    node->arc = parent.arc;
    node->depth = parent.depth;
    node->stack = parent.stack;
    node->path = childPath(parent.path, name);
    node->map = parent.map;
    for (const Site& site : parent.sites) {
        if (const PrimSpec* spec = site.spec->children.find(name))
            node->sites.push_back({spec, site.layer, site.paths});
    }
    for (const auto& child : parent.children) {
        if (auto below = derived(*child, name))
            node->children.push_back(std::move(below));
    }
    const bool isSilent = node->sites.empty() && node->children.empty();
    return isSilent ? nullptr : std::move(node);
}

/// Follows what the node and those below it refer to.
void Composition::expand(CompositionNode& node, const Trail* up, int depth) {
    const Trail trail{&node, up, up == nullptr ? 1 : up->length + 1};
    if (trail.length > kLongestTrail || isUsedUp)
        return;
    for (const auto& child : node.children)
        expand(*child, &trail, depth);
    addClasses(node, trail, Arc::inherit, depth);
    addReferences(node, trail, Arc::reference, depth);
    addReferences(node, trail, Arc::payload, depth);
    addClasses(node, trail, Arc::specialize, depth);
}

void Composition::addReferences(CompositionNode& node, const Trail& trail, Arc arc, int depth) {
    const auto field = arc == Arc::reference ? &PrimSpec::references : &PrimSpec::payloads;
    const auto resolved = [this](const Reference& reference, const Site& site) {
        Resolved result{reference.asset.empty(), {}, withoutVariants(reference.prim)};
        if (result.isHere)
            return result;
        result.file = assets.resolve(reference.asset, site.layer);
        if (!result.file)
            warnings().add(fmt::format("the layer {} is missing", reference.asset));
        return result;
    };
    for (const Resolved& item : editedList<Resolved>(node.sites, field, resolved)) {
        const LayerStack* stack = item.isHere ? node.stack : nullptr;
        if (item.file)
            stack = stacks.open(*item.file);
        if (stack != nullptr)
            addArc(
                node,
                trail,
                {arc, stack, item.prim.empty() ? stack->defaultPrim() : item.prim},
                depth);
    }
}

void Composition::addClasses(CompositionNode& node, const Trail& trail, Arc arc, int depth) {
    const auto field = arc == Arc::inherit ? &PrimSpec::inherits : &PrimSpec::specializes;
    const auto same = [](const std::string& path, const Site&) { return withoutVariants(path); };
    for (const std::string& path : editedList<std::string>(node.sites, field, same))
        addArc(node, trail, {arc, node.stack, path}, depth);
}

void Composition::addArc(
    CompositionNode& node, const Trail& trail, const Target& target, int depth) {
    if (target.path.size() < 2 || !target.path.starts_with('/'))
        return;
    for (const Trail* at = &trail; at != nullptr; at = at->up) {
        const bool isCircle =
            at->node->stack == target.stack &&
            (isAtOrBelow(at->node->path, target.path) || isAtOrBelow(target.path, at->node->path));
        if (isCircle) {
            warnings().add(fmt::format("{} refers to itself", target.path));
            return;
        }
    }
    auto map = std::make_shared<PathMap>(
        PathMap{target.path, node.path, target.stack == node.stack, node.map});
    auto added = targetNode(target, std::move(map), trail, depth);
    if (added == nullptr)
        return;
    added->arc = target.arc;
    added->depth = depth;
    insert(node, std::move(added));
}

/// Comes down from the root of the stack, because what stands above the target can refer to
/// layers that speak about it.
CompositionNodePtr
Composition::targetNode(const Target& target, PathMapPtr map, const Trail& trail, int depth) {
    auto node = std::make_unique<CompositionNode>();
    node->stack = target.stack;
    node->path = '/';
    node->map = std::move(map);
    for (const auto& member : target.stack->members)
        node->sites.push_back({&member.layer->root, member.id, node->map});
    const auto elements = elementsOf(target.path);
    if (elements.size() > static_cast<std::size_t>(kMaxDepth))
        return nullptr;
    for (std::size_t i = 0; i < elements.size(); ++i) {
        node = derived(*node, elements[i]);
        if (node == nullptr)
            return nullptr;
        expand(*node, &trail, depth);
        // Variants of the target itself can be chosen from outside.
        if (i + 1 < elements.size())
            chooseVariants(*node, &trail, depth);
    }
    return node;
}

/// Chooses until no set is open: a variant can choose another one, or refer to more.
void Composition::chooseVariants(CompositionNode& tree, const Trail* up, int depth) {
    while (!isUsedUp && chooseNext(tree, tree, up, depth)) {
    }
}

/// Chooses one variant, the first in the order of strength. False if there is none left.
bool Composition::chooseNext(
    CompositionNode& tree, CompositionNode& node, const Trail* up, int depth) {
    const Trail trail{&node, up, up == nullptr ? 1 : up->length + 1};
    isUsedUp = isUsedUp || !siteBudget.take(1);
    if (trail.length > kLongestTrail || isUsedUp)
        return false;
    for (const std::string& set : variantSetsOf(node.sites)) {
        if (node.chosenSets.contains(set))
            continue;
        const auto selection = selectionIn(tree, set);
        if (!selection)
            continue;
        node.chosenSets.insert(set);
        auto variant = std::make_unique<CompositionNode>();
        variant->arc = Arc::variant;
        variant->depth = depth;
        variant->stack = node.stack;
        variant->path = node.path;
        variant->map = node.map;
        for (const Site& site : node.sites) {
            const VariantSet* there = site.spec->variantSets.find(set);
            const PrimSpec* spec = there != nullptr ? there->variants.find(*selection) : nullptr;
            if (spec != nullptr)
                variant->sites.push_back({spec, site.layer, site.paths});
        }
        expand(*variant, &trail, depth);
        insert(node, std::move(variant));
        return true;
    }
    for (const auto& child : node.children) {
        if (chooseNext(tree, *child, &trail, depth))
            return true;
    }
    return false;
}

} // namespace zelvo::usd
