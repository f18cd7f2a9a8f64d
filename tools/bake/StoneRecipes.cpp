// SPDX-License-Identifier: MIT
#include "Noise.h"
#include "Recipe.h"
#include "Surface.h"

#include <algorithm>
#include <array>
#include <cmath>

// Rock and cracked ground.

namespace zelvo::bake {

namespace {

/// Hewn rock: facets with different slants, with crags and grain over them.
Field rockRelief(int side) {
    return normalised(Field::of(side, side, [](const glm::vec2& p) {
        const glm::vec2 bent = warped(p, 0.025f, octaves(8, 4, 0.5f, 51));
        const float facets = scattered(bent, 11, 53).nearest;
        const float chips = scattered(bent + 0.37f, 27, 54).nearest;
        const float crags = ridged(bent, octaves(7, 4, 0.5f, 52));
        const float grain = fractal(p, octaves(30, 4, 0.6f, 55));
        return 0.50f * facets + 0.20f * chips + 0.40f * crags + 0.30f * grain;
    }));
}

Baked rockRoughness(int side, int) {
    const Field relief = rockRelief(side);
    const Field fine = Field::of(
        side, side, [](const glm::vec2& p) { return fractal(p, octaves(60, 3, 0.6f, 57)); });
    return {
        greyPicture(combined(
            relief,
            fine,
            [](float height, float grain) {
                return 0.96f - 0.30f * height * height + 0.10f * grain;
            })),
        {}};
}

Baked rockNormal(int side, int) {
    return {normalPicture(blurred(rockRelief(side), 0.001f), 0.022f), {}};
}

Baked rockOcclusion(int side, int) {
    const Field relief = rockRelief(side);
    const Field wide = openness(relief, 0.022f, 1.3f);
    const Field narrow = openness(relief, 0.005f, 1.5f);
    return {
        greyPicture(
            combined(wide, narrow, [](float a, float b) { return std::max(0.12f, a * b); })),
        {}};
}

/// Dried ground: the distance to the nearest crack, in cells of the plates.
Field crackDistance(int side) {
    return Field::of(side, side, [](const glm::vec2& p) {
        const glm::vec2 bent = warped(p, 0.016f, octaves(9, 4, 0.5f, 61));
        const Scatter plates = scattered(bent, 9, 63);
        const Scatter shards = scattered(bent + 0.19f, 20, 64);
        const float broken =
            glm::smoothstep(0.05f, 0.5f, fractal(p, octaves(5, 3, 0.5f, 65)) + 0.15f);
        const float main = plates.border * 1.8f;
        const float small = shards.border * 0.9f / std::max(broken, 0.02f);
        // Where the ground is whole, small cracks close.
        return std::min(main, small + 0.015f + 0.12f * (1 - glm::smoothstep(0.05f, 0.35f, broken)));
    });
}

Field crackRelief(int side) {
    const Field distance = crackDistance(side);
    const Field ground = Field::of(side, side, [](const glm::vec2& p) {
        const Scatter plates = scattered(p, 9, 66);
        return 0.10f * plates.chance + 0.14f * fractal(p, octaves(14, 4, 0.5f, 67));
    });
    return combined(distance, blurred(ground, 0.003f), [](float d, float height) {
        const float wall = glm::smoothstep(0.01f, 0.075f, d);
        const float edge = 0.25f * glm::smoothstep(0.05f, 0.30f, d); // plates bulge a little
        return height + wall + edge;
    });
}

Baked crackOcclusion(int side, int) {
    const Field depth =
        crackDistance(side).mapped([](float d) { return glm::smoothstep(0.0f, 0.085f, d); });
    const Field shade = openness(crackRelief(side), 0.017f, 0.8f);
    return {
        greyPicture(combined(
            depth,
            shade,
            [](float crack, float around) {
                return std::max(0.04f, crack * (0.35f + 0.65f * around));
            })),
        {}};
}

Baked crackSpecular(int side, int) {
    const Field depth =
        crackDistance(side).mapped([](float d) { return glm::smoothstep(0.02f, 0.10f, d); });
    const Field polish = Field::of(side, side, [](const glm::vec2& p) {
        return 0.55f + 0.45f * fractal(p, octaves(14, 4, 0.6f, 68));
    });
    return {
        greyPicture(
            combined(depth, polish, [](float crack, float gloss) { return crack * gloss; })),
        {}};
}

Baked crackNormal(int side, int) {
    return {normalPicture(blurred(crackRelief(side), 0.001f), 0.013f), {}};
}

// clang-format off
constexpr auto kRecipes = std::to_array<Recipe>({
    {"rock.jpg",                    Repeats::bothWays, 1024, 1024, rockRoughness },
    {"rock_normal.jpg",             Repeats::bothWays, 1024, 1024, rockNormal    },
    {"rock_ambientOcclusion.jpg",   Repeats::bothWays, 1024, 1024, rockOcclusion },
    {"cracks_ambientocclusion.png", Repeats::bothWays, 1024, 1024, crackOcclusion},
    {"cracks_specular.png",         Repeats::bothWays, 1024, 1024, crackSpecular },
    {"cracks_normal.png",           Repeats::bothWays, 1024, 1024, crackNormal   },
});
// clang-format on

} // namespace

std::span<const Recipe> stoneRecipes() {
    return kRecipes;
}

} // namespace zelvo::bake
