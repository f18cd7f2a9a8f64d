// SPDX-License-Identifier: MIT
#include "Noise.h"
#include "Recipe.h"
#include "Surface.h"

#include <array>
#include <cmath>

// The two pictures of the glowing, flowing surface: one is looked up, the other bends the lookup.

namespace zelvo::bake {

namespace {

/// Glowing veins in dark clouds. The surface multiplies red by four, so most of it is dark here, but nowhere black:
/// letters keep their shape.
Baked veins(int side, int) {
    const Field glow = normalised(Field::of(side, side, [](const glm::vec2& p) {
        const glm::vec2 bent = warped(p, 0.02f, octaves(9, 3, 0.5f, 71));
        const float vein = ridged(bent, octaves(14, 3, 0.40f, 73));
        const float cloud = 0.5f + 0.5f * fractal(p, octaves(4, 4, 0.5f, 74));
        return std::pow(vein, 3.0f) * (0.35f + 0.9f * cloud) + 0.12f * cloud;
    }));
    return {
        picture(
            side,
            side,
            [&](const glm::vec2& p) {
                const float value = glow.at(
                    static_cast<int>(p.x * static_cast<float>(side)),
                    static_cast<int>(p.y * static_cast<float>(side)));
                // Read as a colour, so the stored value is about the square root of the light.
                return glm::vec4(
                    0.038f + 0.62f * std::pow(value, 2.2f),
                    0.85f * value * value + 0.04f,
                    0.8f * value * value * value + 0.05f,
                    1);
            }),
        {}};
}

/// Wide soft waves as normals: red and green shift the lookup by a fraction of the tile.
Baked swells(int side, int) {
    const Field relief = Field::of(
        side, side, [](const glm::vec2& p) { return fractal(p, octaves(5, 3, 0.40f, 75)); });
    return {normalPicture(relief, 0.014f), {}};
}

constexpr auto kRecipes = std::to_array<Recipe>({
    {"QX_Noise_04.jpg", Repeats::bothWays, 1024, 1024, veins},
    {"QX_NoiseNormal_05.jpg", Repeats::bothWays, 512, 512, swells},
});

} // namespace

std::span<const Recipe> energyRecipes() {
    return kRecipes;
}

} // namespace zelvo::bake
