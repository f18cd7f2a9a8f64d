// SPDX-License-Identifier: MIT
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace zelvo::object {

/// Finds equal records by hashing. It holds only their numbers; the records are the caller's. Linear
/// probing, at most half full.
class PlaceTable {
public:
    static constexpr std::uint32_t kFree = 0xFFFFFFFF;

    explicit PlaceTable(std::size_t expected = 0)
        : slots(std::bit_ceil(expected * 2 + 16), kFree) {}

    /// The number of the record with this hash for which `isSame` holds. If there is none, `added`
    /// is entered and returned. `hashOf` gives the hash of an entered record.
    template <class IsSame, class HashOf>
    [[nodiscard]] std::uint32_t
    find(std::uint64_t hash, std::uint32_t added, const IsSame& isSame, const HashOf& hashOf) {
        if ((count + 1) * 2 > slots.size())
            grow(hashOf);
        std::size_t at = hash & (slots.size() - 1);
        while (slots[at] != kFree) {
            if (isSame(slots[at]))
                return slots[at];
            at = (at + 1) & (slots.size() - 1);
        }
        slots[at] = added;
        ++count;
        return added;
    }

private:
    template <class HashOf> void grow(const HashOf& hashOf) {
        std::vector<std::uint32_t> old(slots.size() * 2, kFree);
        old.swap(slots);
        for (const std::uint32_t number : old) {
            if (number == kFree)
                continue;
            std::size_t at = hashOf(number) & (slots.size() - 1);
            while (slots[at] != kFree)
                at = (at + 1) & (slots.size() - 1);
            slots[at] = number;
        }
    }

    std::vector<std::uint32_t> slots;
    std::size_t count = 0;
};

/// Mixes a number into a hash (the finaliser of D. Lea's and G. Steele's SplitMix, 2014).
[[nodiscard]] inline std::uint64_t mixed(std::uint64_t hash, std::uint64_t number) {
    hash = (hash * 0x9E3779B97F4A7C15U) ^ number; // small numbers in both must not cancel out
    hash = (hash ^ (hash >> 30U)) * 0xBF58476D1CE4E5B9U;
    hash = (hash ^ (hash >> 27U)) * 0x94D049BB133111EBU;
    return hash ^ (hash >> 31U);
}

} // namespace zelvo::object
