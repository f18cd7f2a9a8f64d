// SPDX-License-Identifier: MIT
#include "Panorama.h"
#include "Surface.h"

#include <glm/common.hpp>
#include <glm/geometric.hpp>
#include <glm/trigonometric.hpp>

#include <array>
#include <cmath>

// Rooms that light the letters. The camera looks along -z, so the faces of letters mirror what is
// around +z (azimuth 180), up to about 30 degrees to the sides and 15 up and down. Bevels mirror
// all the rest.

namespace zelvo::bake {

namespace {

constexpr glm::vec3 kWarm{1.04f, 1.0f, 0.94f};
constexpr glm::vec3 kNeutral{1.0f, 1.0f, 1.0f};
constexpr glm::vec3 kCool{0.92f, 0.98f, 1.08f};

// azimuth, elevation, roll, half sides, edge, power, falloff, tint
// clang-format off
constexpr auto kProductLamps = std::to_array<Softbox>({
    {200, 27,  -6, {0.85f, 0.42f},  0.04f,  1.5f,  0.92f, kWarm   }, // the large panel behind the camera
    {168, 1,   32, {0.034f, 0.60f}, 0.010f, 2.4f,  0.20f, kNeutral}, // slanting strip: a glint on faces
    {160, 76,  0,  {0.75f, 0.20f},  0.05f,  2.2f,  0.20f, kNeutral}, // overhead
    {262, 12,  3,  {0.060f, 1.00f}, 0.012f, 6.5f,  0.10f, kWarm   }, // strip to the left
    {248, 14,  3,  {0.014f, 0.90f}, 0.006f, 6.0f,  0.10f, kWarm   }, // its thin twin
    {98,  10,  -3, {0.045f, 0.90f}, 0.012f, 3.6f,  0.20f, kCool   }, // strip to the right
    {112, 8,   -3, {0.012f, 0.80f}, 0.006f, 4.5f,  0.20f, kCool   },
    {318, 20,  0,  {0.060f, 0.55f}, 0.015f, 6.0f,  0.0f,  kCool   }, // rim lights behind the letters
    {44,  24,  0,  {0.060f, 0.50f}, 0.015f, 5.0f,  0.0f,  kWarm   },
    {180, -50, 0,  {0.70f, 0.12f},  0.08f,  0.25f, 0.0f,  kNeutral}, // a reflector on the floor
});

// clang-format on

/// A dark room: walls that get brighter upwards, a dark line at the horizon, a floor with a pool of
/// light.
glm::vec3 productRoom(const glm::vec3& direction) {
    const float elevation = elevationOf(direction);
    const float wall = glm::mix(0.025f, 0.08f, glm::smoothstep(0.0f, 80.0f, elevation));
    const float pool = 0.16f * glow(direction, directionOf(180, -20), 22) +
                       0.04f * glow(direction, directionOf(0, -40), 60);
    const float floor = 0.014f + 0.03f * glm::smoothstep(-2.0f, -30.0f, elevation) + pool;
    return glm::mix(glm::vec3(floor), wall * kCool, glm::smoothstep(-2.5f, 2.5f, elevation));
}

Baked productStudio(int width, int height) {
    return environment(width, height, [](const glm::vec3& direction) {
        constexpr float kExposure = 1.12f;
        return kExposure * (productRoom(direction) + lightOf(kProductLamps, direction));
    });
}

// The plain stage multiplies this light by 7.
// clang-format off
constexpr auto kHorizonLamps = std::to_array<Softbox>({
    {205, 40, -6, {0.80f, 0.42f}, 0.18f, 0.24f, 0.55f, kNeutral},
    {272, 18, 2,  {0.12f, 0.85f}, 0.04f, 0.75f, 0.15f, kNeutral},
    {80,  14, -2, {0.08f, 0.80f}, 0.03f, 0.45f, 0.15f, kNeutral},
    {330, 30, 0,  {0.10f, 0.45f}, 0.03f, 0.60f, 0.0f,  kNeutral},
});

// clang-format on

/// Grey overcast: light at the zenith, a bright haze above the horizon, ground below.
Baked greyHorizon(int width, int height) {
    return environment(width, height, [](const glm::vec3& direction) {
        const float elevation = elevationOf(direction);
        const float sky = glm::mix(0.034f, 0.10f, glm::smoothstep(8.0f, 85.0f, elevation));
        const float haze = 0.040f * std::exp(-std::max(0.0f, elevation) / 9.0f);
        const float ground = glm::mix(0.010f, 0.030f, glm::smoothstep(-4.0f, -60.0f, elevation));
        const float grey = glm::mix(ground, sky + haze, glm::smoothstep(-1.5f, 1.5f, elevation));
        return glm::vec3(grey) + lightOf(kHorizonLamps, direction);
    });
}

// The dark stage: lamps are only where the audience sits, so that faces mirror them and the floor
// does not.
// clang-format off
constexpr auto kStageLamps = std::to_array<Softbox>({
    {190, 26, -6, {0.70f, 0.34f},  0.05f,  1.2f, 0.90f, kWarm   },
    {170, 2,  30, {0.040f, 0.60f}, 0.010f, 2.6f, 0.20f, kNeutral},
    {128, 10, -3, {0.045f, 0.80f}, 0.012f, 4.0f, 0.20f, kCool   },
    {234, 12, 3,  {0.055f, 0.85f}, 0.012f, 4.5f, 0.10f, kWarm   },
});

// clang-format on

Baked darkStage(int width, int height) {
    return environment(width, height, [](const glm::vec3& direction) {
        const float hall = 0.008f + 0.10f * glow(direction, directionOf(180, -24), 30);
        return glm::vec3(hall) + lightOf(kStageLamps, direction);
    });
}

/// The wall behind the letters: lit in the middle, with two slanting beams and dark corners, and
/// faint lamps where the camera may turn to.
float litBackdrop(const glm::vec3& direction, float elevation) {
    const float wide = glow(direction, directionOf(0, 5), 40);
    const float core = glow(direction, directionOf(0, 3), 19);
    const float around = 0.20f * glow(direction, directionOf(180, 20), 60) +
                         0.10f * glow(direction, directionOf(90, 10), 34) +
                         0.10f * glow(direction, directionOf(270, 10), 34);
    const float azimuth = glm::degrees(std::atan2(direction.x, -direction.z));
    float beams = 0;
    for (const float side : {-1.0f, 1.0f}) {
        const float width = 5 + 0.14f * (40 - elevation);
        const float away = (azimuth * side - 16 - 0.42f * elevation) / width;
        beams += std::exp(-away * away) * glm::smoothstep(52.0f, 0.0f, elevation);
    }
    return 0.07f + 0.42f * wide + 0.34f * core + around + 0.10f * beams;
}

/// How much of the user's colour is seen in a direction: a lit backdrop behind the letters, and a
/// polished floor that mirrors it.
float backdrop(const glm::vec3& direction) {
    constexpr float kHorizon = -14;
    const float elevation = elevationOf(direction);
    const float above = 2 * kHorizon - elevation;
    const float flat = std::sqrt(direction.x * direction.x + direction.z * direction.z);
    const glm::vec3 mirrored = glm::normalize(
        glm::vec3(direction.x, flat * std::tan(glm::radians(std::min(above, 80.0f))), direction.z));
    const float below = std::max(0.0f, kHorizon - elevation);
    const float floor = 0.05f + 0.62f * std::exp(-below / 15) * litBackdrop(mirrored, above) +
                        0.20f * glow(direction, directionOf(0, -34), 24);
    const float seam = (elevation - kHorizon) / 0.7f;
    const float foot = 1 - 0.35f * std::exp(-seam * seam);
    return foot * glm::mix(
                      floor,
                      litBackdrop(direction, elevation),
                      glm::smoothstep(kHorizon - 0.6f, kHorizon + 0.6f, elevation));
}

Baked tintableBackdrop(int width, int height) {
    Dice dice(92);
    return {
        picture(
            width,
            height,
            [&](const glm::vec2& place) {
                const float dither = (dice.unit() - dice.unit()) / 255;
                return glm::vec4(1, 1, 1, std::min(1.0f, backdrop(directionAt(place)) + dither));
            }),
        {}};
}

// clang-format off
constexpr auto kRecipes = std::to_array<Recipe>({
    {"Background001.png",    Repeats::sideways, 2048, 1024, tintableBackdrop},
    {"Environment001.jpg",   Repeats::sideways, 2048, 1024, productStudio   },
    {"StageEnvironment.jpg", Repeats::sideways, 1024, 512,  darkStage       },
    {"grayHorizont.png",     Repeats::sideways, 1024, 512,  greyHorizon     },
});
// clang-format on

} // namespace

std::span<const Recipe> studioRecipes() {
    return kRecipes;
}

} // namespace zelvo::bake
