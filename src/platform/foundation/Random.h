// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace zelvo::foundation {

/// Starts the process-wide random source anew. The same seed gives the same draws in the same
/// order, on any machine. The first seed, before any call, is 0. Main thread only, like the draws.
void seedRandom(std::uint64_t seed);

/// The seed that the source was started with last.
[[nodiscard]] std::uint64_t randomSeed();

/// A uniform draw in 0 .. upperBound - 1; 0 for a bound of 0 or 1. Without modulo bias.
[[nodiscard]] std::uint32_t
arc4random_uniform(std::uint32_t upperBound); // NOLINT(readability-identifier-naming)

/// A whole 32-bit draw.
[[nodiscard]] std::uint32_t arc4random(); // NOLINT(readability-identifier-naming)

} // namespace zelvo::foundation
