// SPDX-License-Identifier: MIT
#include "Panorama.h"
#include "Surface.h"

#include <glm/common.hpp>
#include <glm/geometric.hpp>

#include <algorithm>
#include <array>
#include <cmath>

// Skies and rooms of the environments. Of a background in the user's colour only the alpha is used:
// the share of that colour.

namespace zelvo::bake {

namespace {

constexpr glm::vec3 kWarm{1.05f, 1.0f, 0.93f};
constexpr glm::vec3 kNeutral{1.0f, 1.0f, 1.0f};
constexpr glm::vec3 kCool{0.92f, 0.98f, 1.08f};

glm::vec4 mask(float cover, Dice& dice) {
    const float dither = (dice.unit() - dice.unit()) / 255;
    return {1, 1, 1, glm::clamp(cover + dither, 0.0f, 1.0f)};
}

/// Layers of cloud at one height: they look finer and closer together towards the horizon.
float cloudCover(const glm::vec3& direction) {
    const float height = std::abs(direction.y) + 0.16f;
    const glm::vec2 place = glm::vec2(direction.x, direction.z) / height * 0.075f + 0.5f;
    const glm::vec2 bent = warped(place, 0.03f, octaves(7, 3, 0.5f, 201));
    const float high = fractal(bent, octaves(9, 6, 0.55f, 202));
    const float low = fractal(place, octaves(22, 4, 0.5f, 203));
    return glm::smoothstep(-0.22f, 0.42f, high + 0.3f * low);
}

/// The sky, and its mirror image in still water below.
float cloudySky(const glm::vec3& direction) {
    const bool isWater = direction.y < 0;
    glm::vec3 looked = direction;
    if (isWater) {
        const glm::vec2 ground = glm::vec2(direction.x, direction.z) / (0.12f - direction.y);
        const float ripple = fractal(ground * 0.05f + 0.5f, octaves(48, 3, 0.5f, 204));
        looked.y += ripple * 0.035f * std::min(1.0f, -direction.y * 6);
        looked = glm::normalize(looked);
    }
    const float elevation = std::abs(elevationOf(looked));
    const float haze = 0.50f * std::exp(-elevation / 13);
    const float sun = glow({looked.x, std::abs(looked.y), looked.z}, directionOf(0, 7), 26);
    const float cloud = cloudCover(looked);
    const float air = 0.20f + haze + 0.46f * sun;
    const float sky = air * (0.55f + 0.62f * cloud) + 0.16f * cloud * sun;
    const float shore = 1 - 0.45f * std::exp(-elevation * elevation / 0.6f);
    return sky * (isWater ? 0.68f : 1.0f) * shore;
}

// The scenes multiply the light of the clouds by 24.
constexpr FaceLight kCloudFace{
    .panel = 0.098f,
    .floor = 0.030f,
    .columns = 0.7f,
    .brightestColumn = -12,
    .above = kWarm,
    .below = kCool};

// clang-format off
constexpr auto kCloudLamps = std::to_array<Softbox>({
    {180, 56, 0,  {1.20f, 0.090f}, 0.02f, 0.60f, 0.0f,  kWarm},
    {256, 12, 3,  {0.070f, 0.95f}, 0.02f, 0.40f, 0.10f, kWarm},
    {104, 10, -3, {0.050f, 0.85f}, 0.02f, 0.34f, 0.20f, kCool},
    {168, 2,  30, {0.045f, 0.60f}, 0.03f, 0.40f, 0.20f, kNeutral},
    {330, 24, 0,  {0.14f, 0.40f},  0.04f, 0.36f, 0.0f,  kCool},
});

// clang-format on

Baked cloudLayers(int width, int height) {
    Baked baked = environment(width, height, 0.44f, [](const glm::vec3& direction) {
        return 0.042f * cloudySky(direction) * glm::vec3(0.95f, 1.0f, 1.07f) +
               lightOf(kCloudFace, direction) + lightOf(kCloudLamps, direction);
    });
    Dice dice(205);
    baked.picture = picture(width, height, [&](const glm::vec2& place) {
        return mask(cloudySky(directionAt(place)), dice);
    });
    return baked;
}

/// Rows of small lamps all around, as in a jeweller's shop: bevels glitter in them.
glm::vec3 jewelLamps(const glm::vec3& direction) {
    glm::vec3 sum{0};
    for (const float row : {4.0f, 17.0f, 34.0f, 56.0f}) {
        const int lamps = row < 10 ? 22 : (row < 40 ? 16 : 9);
        for (int i = 0; i < lamps; ++i) {
            const float azimuth =
                (static_cast<float>(i) + row * 0.037f) * 360 / static_cast<float>(lamps);
            const float near = glow(direction, directionOf(azimuth, row), 2.0f);
            sum += near * (i % 3 == 0 ? kCool : kWarm);
        }
    }
    return sum;
}

// The scenes multiply this light by 8.
constexpr FaceLight kJewelFace{
    .panel = 0.145f,
    .floor = 0.050f,
    .columns = 0.75f,
    .brightestColumn = -8,
    .above = kNeutral,
    .below = kCool};

// clang-format off
constexpr auto kJewelPanels = std::to_array<Softbox>({
    {180, 60, 0,  {1.20f, 0.085f}, 0.012f, 2.20f, 0.0f,  kNeutral},
    {168, 2,  34, {0.045f, 0.60f}, 0.030f, 1.10f, 0.20f, kNeutral},
    {252, 10, 4,  {0.060f, 0.95f}, 0.012f, 1.60f, 0.10f, kWarm   },
    {106, 10, -4, {0.055f, 0.95f}, 0.012f, 1.30f, 0.10f, kCool   },
});

// clang-format on

Baked jewelRoom(int width, int height) {
    return environment(width, height, 0.33f, [](const glm::vec3& direction) {
        const float walls = 0.0025f + 0.006f * glow(direction, directionOf(180, -30), 35);
        return glm::vec3(walls) + 1.1f * jewelLamps(direction) + lightOf(kJewelFace, direction) +
               lightOf(kJewelPanels, direction);
    });
}

// The scenes multiply this light by 2.5 or 7.
constexpr FaceLight kSoftFace{
    .panel = 0.95f,
    .floor = 0.020f,
    .columns = 0.86f,
    .brightestColumn = 9,
    .above = kWarm,
    .below = kNeutral};

// clang-format off
constexpr auto kSoftPanels = std::to_array<Softbox>({
    {180, 60, 0,  {1.20f, 0.090f}, 0.02f, 12.0f, 0.0f,  kNeutral},
    {180, 34, 0,  {0.70f, 0.030f}, 0.01f, 6.00f, 0.0f,  kWarm   },
    {250, 14, 3,  {0.050f, 0.90f}, 0.01f, 7.00f, 0.15f, kWarm   },
    {108, 12, -3, {0.036f, 0.90f}, 0.01f, 5.00f, 0.20f, kNeutral},
    {170, 4,  28, {0.022f, 0.60f}, 0.01f, 2.60f, 0.20f, kNeutral},
    {318, 50, 0,  {0.12f, 0.20f},  0.03f, 4.50f, 0.0f,  kCool   },
    {42,  50, 0,  {0.12f, 0.20f},  0.03f, 4.50f, 0.0f,  kWarm   },
    {180, -52, 0, {0.80f, 0.05f},  0.02f, 1.20f, 0.0f,  kWarm   },
});

// clang-format on

Baked softRoom(int width, int height) {
    return environment(width, height, 0.11f, [](const glm::vec3& direction) {
        const float elevation = elevationOf(direction);
        const float wall = glm::mix(0.004f, 0.030f, glm::smoothstep(-20.0f, 80.0f, elevation));
        const float floor = 0.015f * glow(direction, directionOf(180, -36), 24);
        return (wall + floor) * kNeutral + lightOf(kSoftFace, direction) +
               lightOf(kSoftPanels, direction);
    });
}

/// The value at the edges of all walls, so that the six of them join without a seam.
constexpr float kRoomRim = 0.10f;

float roundedFrame(const glm::vec2& place, const glm::vec2& half, float radius) {
    const glm::vec2 beyond = glm::abs(place) - half + radius;
    return glm::length(glm::max(beyond, glm::vec2(0))) +
           std::min(std::max(beyond.x, beyond.y), 0.0f) - radius;
}

/// 0 at the edge of a wall, 1 well inside.
float awayFromRim(const glm::vec2& place) {
    const glm::vec2 rim = 0.5f - glm::abs(place);
    return glm::smoothstep(0.0f, 0.30f, rim.x) * glm::smoothstep(0.0f, 0.30f, rim.y);
}

/// A wall in the glow of a frame of tubes, which the scene hangs in front of it.
float litWall(const glm::vec2& coordinates) {
    const glm::vec2 place = coordinates - 0.5f;
    const float outside = roundedFrame(place, {0.41f, 0.235f}, 0.05f);
    const float away = std::abs(outside);
    const float halo = 0.22f * std::exp(-away / 0.040f) + 0.30f * std::exp(-away / 0.11f);
    const float middle = glm::length(place / glm::vec2(0.46f, 0.24f));
    const float behind = 0.20f * std::exp(-middle * middle);
    // Slats break up the glow.
    const float slat = std::abs(glm::fract(coordinates.x * 28) - 0.5f) * 2;
    const float groove = glm::mix(0.80f, 1.0f, glm::smoothstep(0.0f, 0.18f, 1 - slat));
    const glm::vec2 rim = 0.5f - glm::abs(place);
    const float fade = glm::smoothstep(0.0f, 0.09f, std::min(rim.x, rim.y));
    return kRoomRim + fade * ((halo + behind) * groove - 0.03f);
}

float plainWall(const glm::vec2& coordinates) {
    const glm::vec2 place = coordinates - 0.5f;
    return kRoomRim + 0.16f * awayFromRim(place) * glow({place, 1}, {0, 0, 1}, 0.8f);
}

template <float (*kCover)(const glm::vec2&)> Baked maskOf(int width, int height) {
    Dice dice(206);
    return {
        picture(width, height, [&](const glm::vec2& place) { return mask(kCover(place), dice); }),
        {}};
}

Baked blackness(int width, int height) {
    return {picture(width, height, [](const glm::vec2&) { return glm::vec4(0, 0, 0, 1); }), {}};
}

/// One star: a core and a faint wide glow.
void addStar(Field& sky, const glm::vec2& place, float radius, float power) {
    const glm::vec2 middle = place * glm::vec2(sky.width, sky.height);
    const int reach = static_cast<int>(radius * 5) + 2;
    for (int y = -reach; y <= reach; ++y) {
        for (int x = -reach; x <= reach; ++x) {
            const glm::ivec2 at = glm::ivec2(middle) + glm::ivec2(x, y);
            const float away = glm::length(glm::vec2(at) + 0.5f - middle) / radius;
            sky.at(at.x, at.y) += power * (std::exp(-away * away) + 0.10f * std::exp(-away));
        }
    }
}

Field starField(int width, int height) {
    Field sky(width, height);
    Dice dice(207);
    const float scale = static_cast<float>(width) / 1024;
    for (int i = 0; i < 2600; ++i) {
        const glm::vec2 place{dice.unit(), dice.unit()};
        const float rare = std::pow(dice.unit(), 14.0f);
        addStar(sky, place, (0.62f + 1.9f * rare) * scale, 0.10f + 0.35f * dice.unit() + rare);
    }
    return sky;
}

/// Stars and gas. It continues from wall to wall sideways and fades out above and below, where the
/// sky is black.
Baked starrySky(int width, int height) {
    const Field stars = starField(width, height);
    Dice dice(208);
    Baked baked{image::Image(width, height), {}};
    baked.picture = picture(width, height, [&](const glm::vec2& place) {
        const glm::vec2 bent = warped(place, 0.16f, octaves(2, 3, 0.5f, 209));
        const float gas = fractal(bent, octaves(3, 6, 0.56f, 210));
        const float lane = ridged(bent, octaves(4, 4, 0.5f, 211));
        const float band = std::exp(-std::pow((place.y - 0.46f) / 0.20f, 2.0f));
        const float cloud = glm::smoothstep(-0.30f, 0.62f, gas) * (0.25f + 0.75f * band);
        const float fade =
            glm::smoothstep(0.0f, 0.16f, place.y) * glm::smoothstep(1.0f, 0.84f, place.y);
        const float star = stars.at(
            static_cast<int>(place.x * static_cast<float>(width)),
            static_cast<int>(place.y * static_cast<float>(height)));
        return mask(fade * (0.02f + 0.85f * cloud * (1 - 0.55f * lane) + star), dice);
    });
    return baked;
}

// clang-format off
constexpr auto kRecipes = std::to_array<Recipe>({
    {"cloud_layers_mirror.png",  Repeats::sideways, 4096, 2048, cloudLayers      },
    {"Environment002.jpg",       Repeats::sideways, 1024, 512,  jewelRoom        },
    {"Environment003.jpg",       Repeats::sideways, 1024, 512,  softRoom         },
    {"Showroom.png",             Repeats::never,    1024, 1024, maskOf<litWall>  },
    {"Showroom_filler.png",      Repeats::never,    1024, 1024, maskOf<plainWall>},
    {"black_cubemap_filler.png", Repeats::never,    1024, 1024, blackness        },
    {"Glitter.png",              Repeats::sideways, 2048, 2048, starrySky        },
});
// clang-format on

} // namespace

std::span<const Recipe> environmentRecipes() {
    return kRecipes;
}

} // namespace zelvo::bake
