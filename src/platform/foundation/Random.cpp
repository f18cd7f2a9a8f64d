// SPDX-License-Identifier: MIT
#include "platform/foundation/Random.h"

#include <random>
#include <utility>

namespace zelvo::foundation {

namespace {

// The standard defines this engine exactly, so a seed means the same on every machine. It does not
// define its distributions exactly, so the bounded draw below is our own.
std::mt19937& source() {
    static std::mt19937 engine(0);
    return engine;
}

std::uint64_t& startedWith() {
    static std::uint64_t seed = 0;
    return seed;
}

} // namespace

void seedRandom(std::uint64_t seed) {
    startedWith() = seed;
    std::seed_seq words{static_cast<std::uint32_t>(seed), static_cast<std::uint32_t>(seed >> 32U)};
    source().seed(words);
}

RandomScope::RandomScope(std::uint32_t seed)
    : former(std::exchange(source(), std::mt19937(seed))) {}

RandomScope::~RandomScope() {
    source() = former;
}

std::uint64_t randomSeed() {
    return startedWith();
}

std::uint32_t arc4random() {
    return static_cast<std::uint32_t>(source()());
}

std::uint32_t arc4random_uniform(std::uint32_t upperBound) {
    if (upperBound < 2)
        return 0;
    // 2^32 mod bound: smaller draws would favour small results.
    const std::uint32_t minimum = (0U - upperBound) % upperBound;
    std::uint32_t draw = arc4random();
    while (draw < minimum) {
        draw = arc4random();
    }
    return draw % upperBound;
}

} // namespace zelvo::foundation
