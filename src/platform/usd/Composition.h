// SPDX-License-Identifier: MIT
#pragma once

#include "platform/usd/LayerStack.h"
#include "platform/usd/Limits.h"
#include "platform/usd/PathMap.h"

#include <memory>
#include <set>
#include <string>
#include <vector>

namespace zelvo::usd {

/// Why a place in a layer speaks about a prim, strongest first.
enum class Arc { root, inherit, variant, reference, payload, specialize };

/// What one layer says about a prim of the scene.
struct Site {
    const PrimSpec* spec = nullptr;
    AssetId layer;
    PathMapPtr paths; ///< from the layer to the scene
};

/// A place that speaks about a prim, and the places that it leads to: a tree whose order from the
/// root on is the order of strength.
struct CompositionNode {
    Arc arc = Arc::root;
    int depth = 0; ///< of the prim that has the arc, in the scene; a deeper one is stronger
    const LayerStack* stack = nullptr;
    std::string path;        ///< in the stack, without variants
    std::vector<Site> sites; ///< strongest first; may be empty
    PathMapPtr map;
    std::vector<std::unique_ptr<CompositionNode>> children; ///< strongest first
    std::set<std::string> chosenSets;                       ///< variant sets that are done
};

using CompositionNodePtr = std::unique_ptr<CompositionNode>;

/// Finds everything that speaks about the prims of a scene.
class Composition {
public:
    Composition(Assets& source, const Limits& limits)
        : assets(source)
        , stacks(source)
        , siteBudget(limits.sites) {}

    /// Of the scene's nameless root. Null if its layer cannot be read.
    [[nodiscard]] CompositionNodePtr root();
    /// Of a child of a prim. Null if nothing speaks about it, or the budget is used up.
    [[nodiscard]] CompositionNodePtr child(const CompositionNode& parent, const std::string& name);
    /// All that is said about a prim, strongest first.
    [[nodiscard]] static std::vector<Site> sitesOf(const CompositionNode& node);

    [[nodiscard]] bool isBudgetUsedUp() const { return isUsedUp; }

    [[nodiscard]] Warnings& warnings() { return stacks.warnings; }

private:
    /// The places on the way to a node, to find circles.
    struct Trail {
        const CompositionNode* node;
        const Trail* up;
        int length;
    };

    /// Where an arc leads to.
    struct Target {
        Arc arc;
        const LayerStack* stack;
        std::string path;
    };

    [[nodiscard]] CompositionNodePtr
    derived(const CompositionNode& parent, const std::string& name);
    void expand(CompositionNode& node, const Trail* up, int depth);
    void addReferences(CompositionNode& node, const Trail& trail, Arc arc, int depth);
    void addClasses(CompositionNode& node, const Trail& trail, Arc arc, int depth);
    void addArc(CompositionNode& node, const Trail& trail, const Target& target, int depth);
    [[nodiscard]] CompositionNodePtr
    targetNode(const Target& target, PathMapPtr map, const Trail& trail, int depth);
    void chooseVariants(CompositionNode& tree, const Trail* up, int depth);
    bool chooseNext(CompositionNode& tree, CompositionNode& node, const Trail* up, int depth);

    Assets& assets;
    LayerStacks stacks;
    Budget siteBudget;
    bool isUsedUp = false;
};

} // namespace zelvo::usd
