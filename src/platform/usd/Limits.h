// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>

namespace zelvo::usd {

/// What a file may take before it is refused. Far above what real files need.
struct Limits {
    std::uint64_t unpackedBytes = std::uint64_t{2} << 30; ///< of all entries of the archive
    std::uint64_t valueBytes = std::uint64_t{2} << 30;    ///< of all decoded values
    std::size_t entries = 100'000;                        ///< of one archive
    std::size_t prims = 1'000'000;                        ///< of the composed scene
    std::size_t sites = 20'000'000;    ///< places in layers that speak about the prims
    std::size_t corners = 100'000'000; ///< of all faces, instances counted each time
};

/// Nesting of prims, of values, of references.
inline constexpr int kMaxDepth = 200;
/// Archives within archives.
inline constexpr int kMaxPackageDepth = 8;

/// What is left of a limit. Shared by everything that reads one file.
class Budget {
public:
    explicit Budget(std::uint64_t whole)
        : left(whole) {}

    /// False if that much is no longer there. Then nothing is taken.
    [[nodiscard]] bool take(std::uint64_t amount) {
        if (amount > left)
            return false;
        left -= amount;
        return true;
    }

private:
    std::uint64_t left;
};

} // namespace zelvo::usd
