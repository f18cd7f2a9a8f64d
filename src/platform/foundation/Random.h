// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <random>

namespace zelvo::foundation {

/// Seeds the process-wide random source. The same seed gives the same draws in the same order on
/// every machine. The initial seed is 0. Main thread only, like the draws.
void seedRandom(std::uint64_t seed);

/// While it lives, draws come from a source of its own with this seed. The process's source goes on
/// afterwards where it was. Main thread only; scopes must end in the reverse order of their beginning.
class RandomScope {
public:
    explicit RandomScope(std::uint32_t seed);
    ~RandomScope();
    RandomScope(const RandomScope&) = delete;
    RandomScope& operator=(const RandomScope&) = delete;

private:
    std::mt19937 former;
};

/// The last seed.
[[nodiscard]] std::uint64_t randomSeed();

/// A uniform random number in 0 .. upperBound - 1, without modulo bias; 0 if the bound is 0 or 1.
[[nodiscard]] std::uint32_t
arc4random_uniform(std::uint32_t upperBound); // NOLINT(readability-identifier-naming)

/// A random 32-bit number.
[[nodiscard]] std::uint32_t arc4random(); // NOLINT(readability-identifier-naming)

} // namespace zelvo::foundation
