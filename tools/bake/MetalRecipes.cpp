// SPDX-License-Identifier: MIT
#include "Canvas.h"
#include "Noise.h"
#include "Recipe.h"
#include "Surface.h"

#include <glm/geometric.hpp>

#include <array>
#include <cmath>
#include <numbers>

// Plates, plastics and worn metal. A letter shows a whole tile on some 300 pixels, so the main pattern
// has about twenty elements to a tile: a grain that is felt more than seen. Relief is shallow, or
// reflections break up.

namespace zelvo::bake {

namespace {

/// A sheet beaten by hand: shallow round dents that overlap.
Baked beatenPlate(int side, int) {
    const Field relief = Field::of(side, side, [](const glm::vec2& p) {
        const glm::vec2 bent = warped(p, 0.004f, octaves(9, 3, 0.5f, 11));
        const Scatter dents = scattered(bent, 17, 13);
        const float bowl = std::min(1.0f, dents.nearest * dents.nearest);
        const float depth = 0.6f + 0.4f * dents.chance;
        return bowl * depth + 0.30f * fractal(p, octaves(4, 2, 0.5f, 14));
    });
    return {normalPicture(blurred(relief, 0.006f), 0.0085f), {}};
}

/// Moulded plastic: a fine even grain, on a skin that is not quite flat.
Baked plasticGrain(int side, int) {
    const Field relief = Field::of(side, side, [](const glm::vec2& p) {
        return 0.65f * fractal(p, octaves(72, 2, 0.6f, 15)) +
               6.0f * fractal(p, octaves(4, 2, 0.4f, 16));
    });
    return {normalPicture(blurred(relief, 0.0015f), 0.00056f), {}};
}

/// The wear used by four maps: fine scratches in all directions, a few deep ones, stains.
struct Wear {
    Field hairlines; ///< 0 to 1
    Field gouges;    ///< 0 to 1
    Field stains;    ///< 0 to 1, soft
};

void scratch(Canvas& canvas, Dice& dice, const Brush& brush, float length) {
    // Tools leave scratches in two main directions, accidents in all others.
    const float drawn = dice.unit();
    const float main =
        drawn < 0.5f ? 0.35f : (drawn < 0.75f ? 2.4f : dice.between(0, std::numbers::pi_v<float>));
    float angle = main + dice.between(-0.2f, 0.2f);
    const float bend = dice.between(-0.25f, 0.25f);
    glm::vec2 place{dice.unit(), dice.unit()};
    std::array<glm::vec2, 9> points{};
    for (glm::vec2& point : points) {
        point = place;
        place += glm::vec2(std::cos(angle), std::sin(angle)) *
                 (length / static_cast<float>(points.size() - 1));
        angle += bend / static_cast<float>(points.size());
    }
    canvas.polyline(points, brush);
}

Wear wornMetal(int side) {
    Dice dice(31);
    Canvas hairlines(side);
    for (int i = 0; i < 700; ++i) {
        const float strength = dice.unit();
        const Brush brush{
            0.0014f + 0.0008f * strength,
            0.15f + 0.85f * strength * strength,
            0.001f,
            Profile::sharp};
        scratch(hairlines, dice, brush, dice.between(0.03f, 0.20f));
    }
    Canvas gouges(side);
    for (int i = 0; i < 22; ++i) {
        const float strength = dice.unit();
        scratch(
            gouges,
            dice,
            {0.0018f + 0.0018f * strength, 0.3f + 0.5f * strength, 0.001f, Profile::round},
            dice.between(0.02f, 0.09f));
    }
    const Field stains = Field::of(side, side, [](const glm::vec2& p) {
        const float cloud = fractal(p, octaves(8, 5, 0.55f, 32));
        return glm::smoothstep(-0.05f, 0.55f, cloud);
    });
    return {hairlines.field(), gouges.field(), stains};
}

/// The fine parallel lines of a grinding belt.
float brushedGrain(const glm::vec2& p) {
    return fractal({p.x, glm::fract(p.y * 24)}, octaves(6, 3, 0.7f, 33));
}

Baked scratchedRoughness(int side, int) {
    const Wear wear = wornMetal(side);
    Field rough =
        Field::of(side, side, [](const glm::vec2& p) { return 0.17f + 0.035f * brushedGrain(p); });
    rough = combined(rough, wear.stains, [](float a, float stain) { return a + 0.05f * stain; });
    rough = combined(rough, wear.hairlines, [](float a, float line) { return a + 0.12f * line; });
    return {
        greyPicture(
            combined(rough, wear.gouges, [](float a, float line) { return a + 0.18f * line; })),
        {}};
}

Baked scratchedMetal(int side, int) {
    const Wear wear = wornMetal(side);
    // Stains are dull oxide; scratches through them are bare metal.
    const Field bare = combined(
        wear.hairlines, wear.gouges, [](float a, float b) { return std::max(0.7f * a, b); });
    return {
        greyPicture(combined(
            wear.stains,
            bare,
            [](float stain, float line) { return 1 - 0.05f * stain * (1 - line); })),
        {}};
}

Baked scratchedOcclusion(int side, int) {
    const Wear wear = wornMetal(side);
    const Field lines = combined(
        wear.hairlines, wear.gouges, [](float a, float b) { return std::max(0.25f * a, b); });
    const Field dirt = blurred(lines, 0.002f);
    return {
        greyPicture(combined(
            wear.stains,
            dirt,
            [](float stain, float line) {
                return (1 - 0.07f * stain) * (1 - 0.45f * std::min(1.0f, line));
            })),
        {}};
}

/// Deep, because it is used at a third of its strength. Old metal was hammered once and is worn: soft
/// dents, over which reflections swim, few pits, scratches.
Baked scratchedNormal(int side, int) {
    const Wear wear = wornMetal(side);
    Field relief = Field::of(side, side, [](const glm::vec2& p) {
        const glm::vec2 bent = warped(p, 0.012f, octaves(9, 3, 0.5f, 35));
        const Scatter dents = scattered(bent, 15, 36);
        const float dent = std::max(0.0f, 1 - dents.nearest * dents.nearest * 1.6f) * dents.chance;
        const Scatter pits = scattered(p, 90, 37);
        const float pit =
            pits.chance > 0.8f ? std::max(0.0f, 1 - pits.nearest * pits.nearest * 9) : 0.0f;
        return 1.9f * fractal(p, octaves(5, 3, 0.42f, 34)) - 0.7f * dent - 0.10f * pit;
    });
    relief = blurred(relief, 0.006f);
    relief = combined(relief, wear.hairlines, [](float a, float line) { return a - 0.06f * line; });
    relief = combined(relief, wear.gouges, [](float a, float line) { return a - 0.20f * line; });
    return {normalPicture(blurred(relief, 0.0008f), 0.0135f), {}};
}

/// Cast metal: dense small grains.
Baked grained(int side, int) {
    const Field relief = Field::of(side, side, [](const glm::vec2& p) {
        const Scatter grain = scattered(p, 110, 41);
        const float bump =
            std::max(0.0f, 1 - grain.nearest * grain.nearest * 1.8f) * (0.4f + 0.6f * grain.chance);
        return bump + 0.5f * fractal(p, octaves(80, 2, 0.6f, 42)) +
               0.8f * fractal(p, octaves(9, 2, 0.5f, 43));
    });
    return {normalPicture(blurred(relief, 0.0012f), 0.0028f), {}};
}

// clang-format off
constexpr auto kRecipes = std::to_array<Recipe>({
    {"QX_NoiseNormal_21.jpg",          Repeats::bothWays, 1024, 1024, beatenPlate       },
    {"plastic_normal.png",             Repeats::bothWays, 1024, 1024, plasticGrain      },
    {"scratches_roughness.jpg",        Repeats::bothWays, 1024, 1024, scratchedRoughness},
    {"scratches_metal.jpg",            Repeats::bothWays, 1024, 1024, scratchedMetal    },
    {"scratches_ambientOcclusion.jpg", Repeats::bothWays, 1024, 1024, scratchedOcclusion},
    {"scratches_normal.jpg",           Repeats::bothWays, 1024, 1024, scratchedNormal   },
    {"seamlesstexture14_500_NRM.png",  Repeats::bothWays, 1024, 1024, grained           },
});
// clang-format on

} // namespace

std::span<const Recipe> metalRecipes() {
    return kRecipes;
}

} // namespace zelvo::bake
