// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/usd/Composition.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace zelvo::usd {

/// An object of the composed scene. Attributes have the value at rest: the default, otherwise the
/// first sample.
class Prim {
public:
    std::string name;
    std::string path;
    std::string typeName;
    const Prim* parent = nullptr; ///< null for the nameless root
    bool isDefined = false;       ///< drawn; not if it is only a class or an `over`
    std::vector<std::unique_ptr<Prim>> children;
    std::vector<Site> sites; ///< what layers say about it, strongest first

    /// Null if no layer gives it a value.
    [[nodiscard]] ValuePtr value(std::string_view attribute) const;
    /// Of an attribute that holds the path of a file: the layer that it is relative to.
    [[nodiscard]] AssetId layerOf(std::string_view attribute) const;
    [[nodiscard]] std::optional<double> number(std::string_view attribute) const;
    /// The value's numbers; empty if there are fewer than `count`.
    [[nodiscard]] Numbers numbers(std::string_view attribute, std::size_t count) const;
    /// Empty if it has none.
    [[nodiscard]] std::string text(std::string_view attribute) const;
    [[nodiscard]] std::vector<std::string> texts(std::string_view attribute) const;
    [[nodiscard]] IntArray ints(std::string_view attribute) const;
    /// Vectors of `width` numbers. Null if the value is of another kind.
    [[nodiscard]] std::shared_ptr<const FloatArray>
    floats(std::string_view attribute, std::size_t width) const;

    /// The paths that a relationship leads to, or that an attribute is connected with.
    [[nodiscard]] std::vector<std::string> targets(std::string_view property) const;
    /// Of a primvar; empty if not authored.
    [[nodiscard]] std::string interpolation(std::string_view attribute) const;
    [[nodiscard]] std::string bindMaterialAs(std::string_view relationship) const;
    /// All properties whose name begins so, in the order in which they are written.
    [[nodiscard]] std::vector<std::string> namesBeginning(std::string_view start) const;

private:
    struct Found {
        const Opinion* opinion = nullptr;
        const Site* site = nullptr;
    };

    [[nodiscard]] Found find(std::string_view attribute) const;
    [[nodiscard]] std::string
    metadata(std::string_view property, std::string PropertySpec::*field) const;
};

/// A scene, composed of all its layers.
class Stage {
public:
    /// Errors: `malformed`, `tooLarge`.
    [[nodiscard]] static foundation::Result<std::unique_ptr<Stage>>
    open(std::unique_ptr<Assets> assets, const Limits& limits);

    [[nodiscard]] const Prim& root() const { return root_; }

    /// Null if there is none.
    [[nodiscard]] const Prim* at(std::string_view path) const;

    [[nodiscard]] std::size_t primCount() const { return byPath.size(); }

    [[nodiscard]] Assets& assets() { return *assets_; }

    [[nodiscard]] const Layer& rootLayer() const { return *rootLayer_; }

    [[nodiscard]] Warnings& warnings() { return composition.warnings(); }

private:
    Stage(std::unique_ptr<Assets> source, const Limits& limits)
        : assets_(std::move(source))
        , composition(*assets_, limits)
        , primBudget(limits.prims) {}

    void fill(Prim& prim, const CompositionNode& node, int depth);

    std::unique_ptr<Assets> assets_;
    Composition composition;
    Budget primBudget;
    bool isTooLarge = false;
    const Layer* rootLayer_ = nullptr;
    Prim root_;
    std::unordered_map<std::string, const Prim*> byPath;
};

} // namespace zelvo::usd
