// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace zelvo::foundation {

/// Seeds the process-wide random source. The same seed gives the same draws in the same order on
/// every machine. The initial seed is 0. Main thread only, like the draws.
void seedRandom(std::uint64_t seed);

/// The last seed.
[[nodiscard]] std::uint64_t randomSeed();

/// A uniform random number in 0 .. upperBound - 1, without modulo bias; 0 if the bound is 0 or 1.
[[nodiscard]] std::uint32_t
arc4random_uniform(std::uint32_t upperBound); // NOLINT(readability-identifier-naming)

/// A random 32-bit number.
[[nodiscard]] std::uint32_t arc4random(); // NOLINT(readability-identifier-naming)

} // namespace zelvo::foundation
