// SPDX-License-Identifier: MIT
#pragma once

#include <glm/vec2.hpp>

#include <cstdint>

// Noise that repeats at the edges of a tile. Coordinates are 0 to 1; counts are whole cells per
// tile. The seed selects another pattern of the same kind; the same seed always gives the same
// values.

namespace zelvo::bake {

/// A sequence of random numbers (SplitMix64; Steele, Lea, Flood 2014).
class Dice {
public:
    explicit Dice(std::uint64_t seed)
        : state(seed) {}

    [[nodiscard]] float unit(); ///< 0 to 1, without 1

    [[nodiscard]] float between(float low, float high) { return low + (high - low) * unit(); }

    [[nodiscard]] int below(int bound) {
        return static_cast<int>(unit() * static_cast<float>(bound));
    }

private:
    std::uint64_t state;
};

/// Gradient noise (Perlin 2002, "Improving Noise"), about -1 to 1, with `cells` waves per tile.
[[nodiscard]] float gradientNoise(const glm::vec2& place, int cells, std::uint32_t seed);

/// A sum of octaves, each twice as fine as the last.
struct Octaves {
    int cells; ///< cells per tile in the first octave
    int count;
    float gain; ///< the amplitude of an octave relative to the last one
    std::uint32_t seed;
};

/// Easier to read than braces within a formula.
[[nodiscard]] constexpr Octaves octaves(int cells, int count, float gain, std::uint32_t seed) {
    return {cells, count, gain, seed};
}

/// Sum of gradient noise: about -1 to 1.
[[nodiscard]] float fractal(const glm::vec2& place, const Octaves& sum);

/// The place moved by noise, by up to about `reach` in each direction: bends what is looked up
/// there.
[[nodiscard]] glm::vec2 warped(const glm::vec2& place, float reach, const Octaves& sum);

/// Sharp crests: 0 to 1, near 1 on thin lines.
[[nodiscard]] float ridged(const glm::vec2& place, const Octaves& sum);

/// Distances to random points, one in each cell (Worley 1996). The unit is a cell.
struct Scatter {
    float nearest = 0;
    float second = 0;
    float border = 0; ///< to the edge of the nearest point's area
    float chance = 0; ///< 0 to 1, a random value for the nearest point
};

[[nodiscard]] Scatter scattered(const glm::vec2& place, int cells, std::uint32_t seed);

} // namespace zelvo::bake
