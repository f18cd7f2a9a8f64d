// SPDX-License-Identifier: MIT
#pragma once

#include <glm/vec2.hpp>

#include <cstdint>

// Noise on a tile that repeats: coordinates of 0 to 1, everything counted in whole cells a tile.
// The seed makes it another pattern of the same kind; the same seed gives the same values
// everywhere.

namespace zelvo::bake {

/// A few random numbers in a row (SplitMix64; Steele, Lea, Flood 2014).
class Dice {
public:
    explicit Dice(std::uint64_t seed)
        : state(seed) {}

    [[nodiscard]] float unit(); ///< 0 to 1, 1 excluded

    [[nodiscard]] float between(float low, float high) { return low + (high - low) * unit(); }

    [[nodiscard]] int below(int bound) {
        return static_cast<int>(unit() * static_cast<float>(bound));
    }

private:
    std::uint64_t state;
};

/// Gradient noise (Perlin 2002, "Improving Noise"), about -1 to 1, with `cells` waves a tile.
[[nodiscard]] float gradientNoise(const glm::vec2& place, int cells, std::uint32_t seed);

/// A sum of octaves, each twice as fine as the one before.
struct Octaves {
    int cells; ///< of the first octave, a tile
    int count;
    float gain; ///< an octave's height over that of the one before
    std::uint32_t seed;
};

/// Reads better than braces within a formula.
[[nodiscard]] constexpr Octaves octaves(int cells, int count, float gain, std::uint32_t seed) {
    return {cells, count, gain, seed};
}

/// Rolling: about -1 to 1.
[[nodiscard]] float fractal(const glm::vec2& place, const Octaves& sum);

/// The place moved by rolling noise up to about `reach` in each direction: what is looked up there
/// is bent.
[[nodiscard]] glm::vec2 warped(const glm::vec2& place, float reach, const Octaves& sum);

/// Sharp crests: 0 to 1, near 1 on thin lines.
[[nodiscard]] float ridged(const glm::vec2& place, const Octaves& sum);

/// Distances to scattered points, one a cell (Worley 1996), in cells.
struct Scatter {
    float nearest = 0;
    float second = 0;
    float border = 0; ///< to the edge of the nearest point's territory
    float chance = 0; ///< 0 to 1, the same all over the nearest point's territory
};

[[nodiscard]] Scatter scattered(const glm::vec2& place, int cells, std::uint32_t seed);

} // namespace zelvo::bake
