// SPDX-License-Identifier: MIT
#pragma once

#include "platform/usd/Assets.h"
#include "platform/usd/Layer.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace zelvo::usd {

/// What is wrong with a scene that is shown nevertheless: one line each, no line twice.
class Warnings {
public:
    void add(std::string line);

    [[nodiscard]] const std::vector<std::string>& lines() const { return lines_; }

private:
    std::vector<std::string> lines_;
};

/// A layer and its sublayers, strongest first. They share one tree of prims.
struct LayerStack {
    struct Member {
        const Layer* layer = nullptr;
        AssetId id;
    };

    std::vector<Member> members; ///< at least one

    /// The prim that a reference without a path means: "/Name"; empty if the layer has no prims.
    [[nodiscard]] std::string defaultPrim() const;
};

/// Opens stacks once each. What is missing or damaged becomes a warning, one line each.
class LayerStacks {
public:
    explicit LayerStacks(Assets& source)
        : assets(source) {}

    /// Null if the layer itself cannot be read.
    [[nodiscard]] const LayerStack* open(AssetId layer);

    Warnings warnings;

private:
    void add(LayerStack& stack, AssetId id, int depth);

    Assets& assets;
    std::map<AssetId, std::unique_ptr<LayerStack>> stacks;
};

} // namespace zelvo::usd
