// SPDX-License-Identifier: MIT
#include "Panorama.h"
#include "Surface.h"

#include <glm/common.hpp>
#include <glm/geometric.hpp>
#include <glm/trigonometric.hpp>

#include <array>
#include <cmath>

// Rooms that light the letters. Faces mirror what FaceLight describes; chamfers mirror all the rest:
// those at the top what is overhead, from front to back, those at the sides the strips, those at the
// bottom the floor. Lamps are small and many times brighter than white, so that rims glint.

namespace zelvo::bake {

namespace {

constexpr glm::vec3 kWarm{1.04f, 1.0f, 0.94f};
constexpr glm::vec3 kNeutral{1.0f, 1.0f, 1.0f};
constexpr glm::vec3 kCool{0.92f, 0.98f, 1.08f};

constexpr FaceLight kProductFace{
    .panel = 0.85f,
    .floor = 0.34f,
    .columns = 0.8f,
    .brightestColumn = -14,
    .above = kWarm,
    .below = kCool};

// azimuth, elevation, roll, half sides, edge, power, falloff, tint
// clang-format off
constexpr auto kProductLamps = std::to_array<Softbox>({
    {180, 56,  0,  {1.30f, 0.095f}, 0.020f, 10.0f, 0.0f,  kNeutral}, // above the camera: the rims at the top
    {150, 88,  0,  {0.75f, 0.16f},  0.05f,  2.4f,  0.0f,  kNeutral}, // overhead
    {168, 1,   32, {0.040f, 0.60f}, 0.030f, 5.0f,  0.20f, kNeutral}, // slanting strip: a glint on faces
    {254, 10,  3,  {0.070f, 1.00f}, 0.012f, 6.5f,  0.10f, kWarm   }, // strip to the left
    {236, 12,  3,  {0.014f, 0.90f}, 0.006f, 7.0f,  0.10f, kWarm   }, // its thin twin
    {102, 8,   -3, {0.050f, 0.90f}, 0.012f, 5.0f,  0.20f, kCool   }, // strip to the right
    {120, 8,   -3, {0.012f, 0.80f}, 0.006f, 6.0f,  0.20f, kCool   },
    {318, 24,  0,  {0.070f, 0.55f}, 0.015f, 7.0f,  0.0f,  kCool   }, // behind the letters
    {44,  26,  0,  {0.070f, 0.50f}, 0.015f, 6.0f,  0.0f,  kWarm   },
    {180, -54, 0,  {0.90f, 0.10f},  0.05f,  0.80f, 0.0f,  kWarm   }, // a reflector on the floor
});

// clang-format on

/// A dark room: walls that get brighter upwards, a dark line at the horizon, a floor with a pool of
/// light.
glm::vec3 productRoom(const glm::vec3& direction) {
    const float elevation = elevationOf(direction);
    const float wall = glm::mix(0.016f, 0.06f, glm::smoothstep(0.0f, 80.0f, elevation));
    const float pool = 0.04f * glow(direction, directionOf(0, -40), 60);
    const float floor = 0.010f + 0.03f * glm::smoothstep(-2.0f, -30.0f, elevation) + pool;
    return glm::mix(glm::vec3(floor), wall * kCool, glm::smoothstep(-2.5f, 2.5f, elevation));
}

Baked productStudio(int width, int height) {
    return environment(width, height, 0.46f, [](const glm::vec3& direction) {
        constexpr float kExposure = 1.12f;
        return kExposure * (productRoom(direction) + lightOf(kProductFace, direction) +
                            lightOf(kProductLamps, direction));
    });
}

// The plain stage multiplies this light by 7.
constexpr FaceLight kHorizonFace{
    .panel = 0.26f,
    .floor = 0.040f,
    .columns = 0.75f,
    .brightestColumn = -10,
    .above = kNeutral,
    .below = kNeutral};

// clang-format off
constexpr auto kHorizonLamps = std::to_array<Softbox>({
    {180, 60, 0,  {1.20f, 0.090f}, 0.015f, 12.0f, 0.0f,  kNeutral},
    {200, 84, 0,  {0.60f, 0.10f},  0.03f, 1.20f, 0.0f,  kNeutral},
    {250, 14, 2,  {0.050f, 0.80f}, 0.012f, 5.20f, 0.10f, kWarm  },
    {108, 12, -2, {0.030f, 0.80f}, 0.012f, 2.00f, 0.10f, kCool  },
    {168, 3,  30, {0.045f, 0.60f}, 0.03f, 2.40f, 0.20f, kNeutral}, // a glint on glossy faces
    {306, 42, 0,  {0.12f, 0.22f},  0.03f, 2.00f, 0.0f,  kNeutral},
    {54,  42, 0,  {0.10f, 0.22f},  0.03f, 1.60f, 0.0f,  kNeutral},
});

// clang-format on

/// Grey overcast: light at the zenith, a bright haze above the horizon, ground below.
Baked greyHorizon(int width, int height) {
    return environment(width, height, 0.15f, [](const glm::vec3& direction) {
        const float elevation = elevationOf(direction);
        const float sky = glm::mix(0.010f, 0.090f, glm::smoothstep(20.0f, 85.0f, elevation));
        const float haze = 0.012f * std::exp(-std::max(0.0f, elevation) / 9.0f);
        const float ground = glm::mix(0.008f, 0.034f, glm::smoothstep(-8.0f, -60.0f, elevation));
        const float grey = glm::mix(ground, sky + haze, glm::smoothstep(-1.5f, 1.5f, elevation));
        return glm::vec3(grey) + lightOf(kHorizonFace, direction) +
               lightOf(kHorizonLamps, direction);
    });
}

// The dark stage. Behind the letters, lamps hang so high that the floor does not mirror them to the
// camera.
constexpr FaceLight kStageFace{
    .panel = 1.5f,
    .floor = 0.26f,
    .columns = 0.92f,
    .brightestColumn = -9,
    .above = kWarm,
    .below = kCool};

// clang-format off
constexpr auto kStageLamps = std::to_array<Softbox>({
    {180, 58, 0,  {1.10f, 0.090f}, 0.015f, 18.0f, 0.0f, kNeutral},
    {170, 2,  30, {0.045f, 0.60f}, 0.030f, 9.0f, 0.20f, kNeutral},
    {112, 10, -3, {0.045f, 0.90f}, 0.012f, 8.0f, 0.20f, kCool   },
    {246, 12, 3,  {0.055f, 0.90f}, 0.012f, 8.5f, 0.10f, kWarm   },
    {316, 52, 0,  {0.16f, 0.20f},  0.020f, 8.0f, 0.0f,  kCool   },
    {44,  52, 0,  {0.16f, 0.20f},  0.020f, 7.0f, 0.0f,  kWarm   },
});

// clang-format on

Baked darkStage(int width, int height) {
    return environment(width, height, 0.32f, [](const glm::vec3& direction) {
        const float hall = 0.008f + 0.06f * glow(direction, directionOf(180, -34), 24);
        return glm::vec3(hall) + lightOf(kStageFace, direction) + lightOf(kStageLamps, direction);
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
