// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <cstring>
#include <type_traits>

namespace zelvo::render {

/// FNV-1a over 32-bit words (Fowler, Noll, Vo 1991). Used to see whether something has changed.
class Hash {
public:
    void add(std::uint64_t word) { value = (value ^ word) * 0x100000001B3ULL; }

    /// Adds a struct of 32-bit values without padding.
    template <class Block> void addBlock(const Block& block) {
        static_assert(std::is_trivially_copyable_v<Block> && sizeof(Block) % 4 == 0);
        for (std::size_t offset = 0; offset < sizeof(Block); offset += 4) {
            std::uint32_t word = 0;
            std::memcpy(&word, reinterpret_cast<const char*>(&block) + offset, sizeof(word));
            add(word);
        }
    }

    void addAddress(const void* address) { add(reinterpret_cast<std::uintptr_t>(address)); }

    [[nodiscard]] std::uint64_t result() const { return value; }

private:
    std::uint64_t value = 0xCBF29CE484222325ULL;
};

} // namespace zelvo::render
