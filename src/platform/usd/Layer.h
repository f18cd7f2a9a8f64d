// SPDX-License-Identifier: MIT
#pragma once

#include "platform/usd/Value.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <unordered_map>

namespace zelvo::usd {

/// Items with unique names, in the order in which they were added, and found quickly by name.
template <class T> class NamedList {
public:
    /// The item with this name; made if there is none.
    T& at(const std::string& name) {
        const auto [place, isNew] = places.try_emplace(name, items.size());
        if (isNew)
            items.emplace_back(std::make_unique<T>())->name = name;
        return *items[place->second];
    }

    /// Null if there is none.
    [[nodiscard]] const T* find(std::string_view name) const {
        const auto place = places.find(std::string(name));
        return place == places.end() ? nullptr : items[place->second].get();
    }

    [[nodiscard]] const std::vector<std::unique_ptr<T>>& all() const { return items; }

    /// Puts the named items first, in this order.
    void sort(const std::vector<std::string>& order);

private:
    std::vector<std::unique_ptr<T>> items;
    std::unordered_map<std::string, std::size_t> places;
};

template <class T> void NamedList<T>::sort(const std::vector<std::string>& order) {
    std::unordered_map<std::string_view, std::size_t> wanted;
    for (const std::string& name : order)
        wanted.try_emplace(name, wanted.size());
    const auto rank = [&wanted](const std::unique_ptr<T>& item) {
        const auto found = wanted.find(item->name);
        return found == wanted.end() ? wanted.size() : found->second;
    };
    std::ranges::stable_sort(items, {}, rank);
    for (std::size_t i = 0; i < items.size(); ++i)
        places[items[i]->name] = i;
}

/// An attribute or a relationship, as one layer states it.
struct PropertySpec {
    std::string name;
    Opinion value;               ///< of an attribute: its default
    Opinion firstSample;         ///< of an animated attribute
    ListOp<std::string> targets; ///< absolute paths: of a relationship, or what feeds an attribute
    std::string interpolation;   ///< of a primvar; empty if not authored
    std::string bindMaterialAs;  ///< of a material binding; empty if not authored
};

enum class Specifier { def, over, abstract };

struct VariantSet;

/// A prim, or a variant of one, as one layer states it.
struct PrimSpec {
    std::string name; ///< of a variant: its selection
    Specifier specifier = Specifier::over;
    std::string typeName;
    std::optional<bool> isActive;
    ListOp<Reference> references, payloads;
    ListOp<std::string> inherits, specializes; ///< absolute paths
    ListOp<std::string> variantSetNames;
    VariantSelections variantSelections;
    NamedList<VariantSet> variantSets;
    NamedList<PropertySpec> properties;
    NamedList<PrimSpec> children;
};

struct VariantSet {
    std::string name;
    NamedList<PrimSpec> variants;
};

/// What one file of a scene says, whatever form it is written in.
struct Layer {
    PrimSpec root; ///< nameless; its children are the root prims
    std::string defaultPrim;
    std::string upAxis;
    std::optional<double> metersPerUnit;
    std::vector<std::string> subLayers; ///< asset paths, strongest first
    std::unique_ptr<ValueStore> store;  ///< for the values that are still to be decoded
};

} // namespace zelvo::usd
