// SPDX-License-Identifier: MIT
#include "Canvas.h"
#include "Noise.h"
#include "Recipe.h"
#include "Surface.h"

#include <glm/geometric.hpp>

#include <array>
#include <cmath>
#include <numbers>

// Plates, plastics and worn metal. A letter shows a whole tile, so details must not be finer than
// about a hundredth of it.

namespace zelvo::bake {

namespace {

/// A sheet beaten by hand: shallow round dents that overlap.
Baked beatenPlate(int side, int) {
    const Field relief = Field::of(side, side, [](const glm::vec2& p) {
        const glm::vec2 bent = warped(p, 0.006f, octaves(6, 3, 0.5f, 11));
        const Scatter dents = scattered(bent, 9, 13);
        const float bowl = std::min(1.0f, dents.nearest * dents.nearest);
        const float depth = 0.6f + 0.4f * dents.chance;
        return bowl * depth + 0.10f * fractal(p, octaves(5, 3, 0.5f, 14));
    });
    return {normalPicture(blurred(relief, 0.009f), 0.024f), {}};
}

/// Moulded plastic: low round studs in staggered rows, all exactly alike.
Baked plasticGrip(int side, int) {
    // Even, so that the stagger closes; about six to seven.
    constexpr float kColumns = 28, kRows = 32;
    const Field relief = Field::of(side, side, [](const glm::vec2& p) {
        const float row = std::floor(p.y * kRows);
        const float shift = std::fmod(row, 2.0f) * 0.5f;
        const glm::vec2 cell{
            p.x * kColumns + shift - std::floor(p.x * kColumns + shift) - 0.5f,
            p.y * kRows - row - 0.5f};
        const float away = glm::length(cell / glm::vec2(kColumns, kRows)) * kColumns;
        return 1 - glm::smoothstep(0.12f, 0.40f, away);
    });
    return {normalPicture(blurred(relief, 0.0022f), 0.0062f), {}};
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
    for (int i = 0; i < 520; ++i) {
        const float strength = dice.unit();
        const Brush brush{
            0.0022f + 0.0018f * strength,
            0.15f + 0.85f * strength * strength,
            0.001f,
            Profile::sharp};
        scratch(hairlines, dice, brush, dice.between(0.05f, 0.5f));
    }
    Canvas gouges(side);
    for (int i = 0; i < 26; ++i) {
        const float strength = dice.unit();
        scratch(
            gouges,
            dice,
            {0.004f + 0.005f * strength, 0.4f + 0.6f * strength, 0.001f, Profile::round},
            dice.between(0.03f, 0.22f));
    }
    const Field stains = Field::of(side, side, [](const glm::vec2& p) {
        const float cloud = fractal(p, octaves(3, 6, 0.55f, 32));
        return glm::smoothstep(-0.10f, 0.42f, cloud);
    });
    return {hairlines.field(), gouges.field(), stains};
}

Baked scratchedRoughness(int side, int) {
    const Wear wear = wornMetal(side);
    Field rough = Field::of(side, side, [](const glm::vec2& p) {
        return 0.27f + 0.05f * fractal(p, octaves(8, 5, 0.6f, 33));
    });
    rough = combined(rough, wear.stains, [](float a, float stain) { return a + 0.07f * stain; });
    rough = combined(rough, wear.hairlines, [](float a, float line) { return a + 0.24f * line; });
    return {
        greyPicture(
            combined(rough, wear.gouges, [](float a, float line) { return a + 0.25f * line; })),
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
            [](float stain, float line) { return 1 - 0.12f * stain * (1 - line); })),
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
                return (1 - 0.14f * stain) * (1 - 0.65f * std::min(1.0f, line));
            })),
        {}};
}

/// Deep, because it is used at a third of its strength. Old metal is dented and pitted as well as
/// scratched.
Baked scratchedNormal(int side, int) {
    const Wear wear = wornMetal(side);
    Field relief = Field::of(side, side, [](const glm::vec2& p) {
        const glm::vec2 bent = warped(p, 0.02f, octaves(5, 3, 0.5f, 35));
        const Scatter dents = scattered(bent, 6, 36);
        const float dent = std::max(0.0f, 1 - dents.nearest * dents.nearest * 2.4f) * dents.chance;
        const Scatter pits = scattered(p, 34, 37);
        const float pit =
            pits.chance > 0.72f ? std::max(0.0f, 1 - pits.nearest * pits.nearest * 9) : 0.0f;
        return 0.6f * fractal(p, octaves(4, 5, 0.5f, 34)) - 0.9f * dent - 0.16f * pit;
    });
    relief = combined(relief, wear.hairlines, [](float a, float line) { return a - 0.10f * line; });
    relief = combined(relief, wear.gouges, [](float a, float line) { return a - 0.40f * line; });
    return {normalPicture(blurred(relief, 0.0008f), 0.055f), {}};
}

/// Cast metal: dense small grains.
Baked grained(int side, int) {
    const Field relief = Field::of(side, side, [](const glm::vec2& p) {
        const Scatter grain = scattered(p, 60, 41);
        const float bump =
            std::max(0.0f, 1 - grain.nearest * grain.nearest * 1.8f) * (0.4f + 0.6f * grain.chance);
        return bump + 0.5f * fractal(p, octaves(40, 2, 0.6f, 42)) +
               0.35f * fractal(p, octaves(7, 2, 0.5f, 43));
    });
    return {normalPicture(blurred(relief, 0.002f), 0.0055f), {}};
}

// clang-format off
constexpr auto kRecipes = std::to_array<Recipe>({
    {"QX_NoiseNormal_21.jpg",          Repeats::bothWays, 1024, 1024, beatenPlate       },
    {"plastic_normal.png",             Repeats::bothWays, 1024, 1024, plasticGrip       },
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
