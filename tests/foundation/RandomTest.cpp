// SPDX-License-Identifier: MIT
#include "platform/foundation/Random.h"

#include <gtest/gtest.h>

#include <array>
#include <vector>

namespace zelvo::foundation {
namespace {

std::vector<std::uint32_t> draws(std::uint64_t seed) {
    seedRandom(seed);
    std::vector<std::uint32_t> values(50);
    for (std::uint32_t& value : values)
        value = arc4random_uniform(1000);
    return values;
}

TEST(Random, ASeedRepeatsItsDrawsAndSeedsDiffer) {
    EXPECT_EQ(draws(7), draws(7));
    EXPECT_NE(draws(7), draws(8));
    EXPECT_NE(draws(7), draws(7 + (1ULL << 32U))); // the upper half matters, too
}

TEST(Random, BoundedDrawsAreUniform) {
    seedRandom(1);
    std::array<int, 6> counts{};
    constexpr int kDraws = 60'000;
    for (int i = 0; i < kDraws; ++i) {
        ++counts.at(arc4random_uniform(6));
    }
    // Chi-square with 5 degrees of freedom: one seed in a thousand exceeds 20.5.
    double chi = 0;
    for (const int count : counts) {
        const double off = count - kDraws / 6.0;
        chi += off * off / (kDraws / 6.0);
    }
    EXPECT_LT(chi, 20.5);
    EXPECT_EQ(arc4random_uniform(0), 0U);
    EXPECT_EQ(arc4random_uniform(1), 0U);
}

} // namespace
} // namespace zelvo::foundation
