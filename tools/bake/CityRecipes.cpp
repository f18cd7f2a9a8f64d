// SPDX-License-Identifier: MIT
#include "Panorama.h"
#include "Surface.h"

#include <glm/common.hpp>
#include <glm/geometric.hpp>

#include <algorithm>
#include <array>
#include <cmath>

// A panorama of a city at night, for reflections.

namespace zelvo::bake {

namespace {

/// One row of houses, all at the same distance.
struct Street {
    int houses;       ///< all around
    float lowDegrees; ///< the lowest and the highest roof
    float highDegrees;
    glm::ivec2 windows; ///< across a house, and in 30 degrees of height
    float brightness;
    std::uint32_t seed;
};

// From back to front.
// clang-format off
constexpr auto kStreets = std::to_array<Street>({
    {31, 12, 46, {6, 22}, 0.45f, 101},
    {21, 6,  36, {6, 15}, 0.80f, 102},
    {13, 1,  24, {7, 11}, 1.20f, 103},
});
// clang-format on

/// The foot of the houses, degrees of elevation.
constexpr float kStreetLevel = -3;

float chance(int a, int b, std::uint32_t seed) {
    return Dice(
               (static_cast<std::uint64_t>(static_cast<std::uint32_t>(a)) << 32U) ^
               (static_cast<std::uint32_t>(b) * 2654435761U) ^
               (static_cast<std::uint64_t>(seed) << 17U))
        .unit();
}

/// The colour of a window: one of a few lamp colours, or dark.
glm::vec3 windowLight(int column, int row, const Street& street, int house) {
    const float drawn = chance(house * 64 + column, row, street.seed + 7);
    const float busy = 0.25f + 0.45f * chance(house, 3, street.seed);
    if (drawn > busy)
        return {0.012f, 0.016f, 0.026f};
    const float kind = chance(house * 64 + column, row, street.seed + 8);
    const glm::vec3 lamp = kind < 0.62f ? glm::vec3(1.0f, 0.72f, 0.36f)
                                        : (kind < 0.88f ? glm::vec3(0.85f, 0.92f, 1.0f)
                                                        : glm::vec3(0.35f, 0.75f, 1.0f));
    return lamp * (0.35f + 1.1f * drawn / busy);
}

/// The light of a street in a direction; nothing above its roofs.
std::optional<glm::vec3> streetLight(const Street& street, float turn, float elevation) {
    const float across = turn * static_cast<float>(street.houses);
    const int house = static_cast<int>(across) % street.houses;
    const float inside = across - std::floor(across);
    const float roof = glm::mix(
        street.lowDegrees, street.highDegrees, std::pow(chance(house, 1, street.seed), 1.4f));
    const bool setBack = inside < 0.16f || inside > 0.84f;
    if (elevation > roof - (setBack ? 2.2f : 0.0f))
        return std::nullopt;

    const glm::vec3 wall =
        glm::vec3(0.011f, 0.014f, 0.026f) * (0.6f + 0.8f * chance(house, 2, street.seed));
    if (inside < 0.05f || inside > 0.95f || elevation > roof - 1.6f || elevation < -3)
        return wall;
    const glm::vec2 place{
        (inside - 0.05f) / 0.9f * static_cast<float>(street.windows.x),
        (elevation + 90) / 30 * static_cast<float>(street.windows.y)};
    const glm::vec2 cell = glm::floor(place);
    const glm::vec2 rim = glm::abs(place - cell - 0.5f);
    const float pane =
        (1 - glm::smoothstep(0.12f, 0.46f, rim.x)) * (1 - glm::smoothstep(0.10f, 0.46f, rim.y));
    return wall + windowLight(static_cast<int>(cell.x), static_cast<int>(cell.y), street, house) *
                      (pane * street.brightness);
}

/// Everything above the street level.
glm::vec3 skyline(float turn, float elevation) {
    const glm::vec3 night = glm::mix(
        glm::vec3(0.030f, 0.040f, 0.095f),
        glm::vec3(0.002f, 0.003f, 0.010f),
        glm::smoothstep(0.0f, 60.0f, elevation));
    // The glow of the city on the haze: warm below, violet above.
    const float height = std::max(0.0f, elevation);
    glm::vec3 light = night + glm::vec3(1.10f, 0.42f, 0.16f) * std::exp(-height / 10) +
                      glm::vec3(0.30f, 0.10f, 0.42f) * std::exp(-height / 34);
    for (const Street& street : kStreets) {
        if (const auto houses = streetLight(street, turn, elevation))
            light = *houses;
    }
    return light;
}

glm::vec3 town(const glm::vec2& place) {
    const float elevation = 90 - place.y * 180;
    if (elevation >= kStreetLevel)
        return skyline(place.x, elevation);

    // A wet street: the houses mirrored, stretched and broken by ripples.
    const float depth = kStreetLevel - elevation;
    const float ripple = fractal({place.x, place.y}, octaves(90, 3, 0.6f, 105));
    const float turn = place.x + 0.004f * ripple;
    const glm::vec3 mirrored =
        skyline(turn - std::floor(turn), kStreetLevel + depth * 0.75f + ripple * 2.5f);
    const glm::vec3 asphalt = glm::vec3(0.09f, 0.055f, 0.035f) * std::exp(-depth / 14) +
                              glm::vec3(0.006f, 0.007f, 0.011f);
    return asphalt + mirrored * 0.30f * std::exp(-depth / 30);
}

/// A lamp out of focus: an even disc with a brighter rim, as lenses draw it.
struct Disc {
    glm::vec2 middle; ///< degrees of azimuth and elevation
    float radius;     ///< degrees
    glm::vec3 light;
};

Disc randomDisc(Dice& dice) {
    constexpr auto kLamps = std::to_array<glm::vec3>(
        {{1.0f, 0.60f, 0.20f},
         {1.0f, 0.60f, 0.20f},
         {1.0f, 0.90f, 0.74f},
         {1.0f, 0.14f, 0.10f},
         {0.25f, 0.70f, 1.0f},
         {0.90f, 0.25f, 0.75f}});
    const float near = dice.unit() * dice.unit();
    const float away = dice.between(-1, 1);
    const glm::vec2 middle{dice.between(0, 360), 2 + 17 * away * std::abs(away)};
    const glm::vec3 lamp = kLamps.at(static_cast<std::size_t>(dice.below(kLamps.size())));
    return {middle, 0.45f + 2.1f * near, lamp * dice.between(0.10f, 0.75f)};
}

void add(image::Radiance& light, const Disc& disc) {
    const float perDegree = static_cast<float>(light.width) / 360;
    const glm::vec2 middle{disc.middle.x * perDegree, (90 - disc.middle.y) * perDegree};
    const int reach = static_cast<int>(disc.radius * perDegree) + 2;
    for (int i = 0; i < 4 * reach * reach; ++i) {
        const glm::ivec2 pixel =
            glm::ivec2(middle) + glm::ivec2(i % (2 * reach), i / (2 * reach)) - reach;
        const float away = glm::length(glm::vec2(pixel) - middle) / (disc.radius * perDegree);
        const float rim = 0.7f + 0.3f * glm::smoothstep(0.6f, 0.9f, away);
        const int column = (pixel.x + light.width) % light.width;
        const int row = std::clamp(pixel.y, 0, light.height - 1);
        const std::ptrdiff_t at = std::ptrdiff_t{row} * light.width + column;
        light.pixels[static_cast<std::size_t>(at)] +=
            disc.light * (rim * (1 - glm::smoothstep(0.88f, 1.04f, away)));
    }
}

// What bevels mirror: lit clouds above the street, and two tall signs aside. Faces mirror only the
// street.
// clang-format off
constexpr auto kSigns = std::to_array<Softbox>({
    {180, 60, 0,  {1.30f, 0.28f},  0.10f, 7.0f, 0.0f,  {1.0f,  0.90f, 1.0f }},
    {250, 14, 3,  {0.045f, 0.80f}, 0.02f, 3.0f, 0.10f, {1.0f,  0.70f, 0.90f}},
    {108, 14, -3, {0.035f, 0.80f}, 0.02f, 3.0f, 0.10f, {0.70f, 0.90f, 1.0f }},
});

// clang-format on

Baked townAtNight(int width, int height) {
    image::Radiance light{width, height, {}};
    for (int i = 0; i < width * height; ++i) {
        // Four samples a pixel keep the edges of windows smooth.
        const glm::vec2 pixel(i % width, i / width);
        glm::vec3 sum{0};
        for (int look = 0; look < 4; ++look) {
            const glm::vec2 offset = glm::vec2(look % 2, look / 2) * 0.5f + 0.25f;
            const glm::vec2 place = (pixel + offset) / glm::vec2(width, height);
            sum += town(place) + lightOf(kSigns, directionAt(place));
        }
        light.pixels.push_back(sum * 0.25f);
    }
    Dice dice(106);
    for (int i = 0; i < 620; ++i)
        add(light, randomDisc(dice));
    return {displayed(light), {}};
}

constexpr auto kRecipes = std::to_array<Recipe>({
    {"buildings_night.png", Repeats::sideways, 2048, 1024, townAtNight},
});

} // namespace

std::span<const Recipe> cityRecipes() {
    return kRecipes;
}

} // namespace zelvo::bake
