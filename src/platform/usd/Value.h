// SPDX-License-Identifier: MIT
#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <variant>
#include <vector>

namespace zelvo::usd {

/// A single number, a vector, a quaternion (i, j, k, real) or a matrix, row by row. Booleans are
/// 0 and 1.
using Numbers = std::vector<double>;

/// An array of numbers, or of vectors, quaternions and matrices of `width` numbers each.
struct FloatArray {
    std::size_t width = 1;
    std::vector<float> values; ///< `width` times the number of elements
};

/// An array of whole numbers. Those that do not fit are the nearest that do.
using IntArray = std::vector<std::int32_t>;

/// A prim of another layer, or of the same one, whose opinions are taken over.
struct Reference {
    std::string asset; ///< empty: the same layer
    std::string prim;  ///< empty: the default prim of the layer

    // NOLINTNEXTLINE(modernize-use-nullptr): it takes the 0 of comparisons for a pointer
    auto operator<=>(const Reference&) const = default;
};

/// A list that several layers edit.
template <class T> struct ListOp {
    bool isExplicit = false;
    std::vector<T> explicitItems, added, prepended, appended, deleted;

    /// An edit that replaces the list.
    [[nodiscard]] static ListOp exactly(std::vector<T> items) {
        ListOp result;
        result.isExplicit = true;
        result.explicitItems = std::move(items);
        return result;
    }

    [[nodiscard]] bool isEmpty() const {
        return !isExplicit && added.empty() && prepended.empty() && appended.empty() &&
               deleted.empty();
    }

    /// Edits the list that weaker layers gave.
    void applyTo(std::vector<T>& list) const;
};

template <class T> void ListOp<T>::applyTo(std::vector<T>& list) const {
    if (isExplicit) {
        list = explicitItems;
        return;
    }
    const auto remove = [&list](const std::vector<T>& items) {
        const std::set<T> gone(items.begin(), items.end());
        std::erase_if(list, [&gone](const T& item) { return gone.contains(item); });
    };
    remove(deleted);
    std::set<T> there(list.begin(), list.end());
    for (const T& item : added) {
        if (there.insert(item).second)
            list.push_back(item);
    }
    remove(appended);
    list.insert(list.end(), appended.begin(), appended.end());
    remove(prepended);
    list.insert(list.begin(), prepended.begin(), prepended.end());
}

using StringList = std::vector<std::string>;
/// The chosen variant of each set.
using VariantSelections = std::map<std::string, std::string, std::less<>>;

/// Says that a stronger layer takes a value away.
struct Blocked {};

/// What a field of a layer holds. Tokens, strings, asset paths and paths of prims are all text.
/// std::monostate: a kind of value that no reader here needs, or one that is damaged.
using Value = std::variant<
    std::monostate,
    Blocked,
    Numbers,
    FloatArray,
    IntArray,
    std::string,
    StringList,
    ListOp<std::string>,
    ListOp<Reference>,
    VariantSelections>;
using ValuePtr = std::shared_ptr<const Value>;

/// Decodes values of a layer when they are asked for: most arrays of a file are never needed.
class ValueStore {
public:
    ValueStore() = default;
    virtual ~ValueStore() = default;
    ValueStore(const ValueStore&) = delete;
    ValueStore& operator=(const ValueStore&) = delete;

    [[nodiscard]] virtual Value decode(std::uint64_t stored) const = 0;
};

/// A value that a layer states for an attribute: ready, or still in the store.
struct Opinion {
    ValuePtr ready;
    const ValueStore* store = nullptr;
    std::uint64_t stored = 0;

    [[nodiscard]] bool isAuthored() const { return ready != nullptr || store != nullptr; }

    /// A block is never left in the store.
    [[nodiscard]] bool isBlocked() const {
        return ready != nullptr && std::holds_alternative<Blocked>(*ready);
    }

    /// Never null.
    [[nodiscard]] ValuePtr value() const {
        if (ready != nullptr)
            return ready;
        return std::make_shared<Value>(store != nullptr ? store->decode(stored) : Value{});
    }
};

} // namespace zelvo::usd
