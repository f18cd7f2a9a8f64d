// SPDX-License-Identifier: MIT
#include "Noise.h"
#include "Panorama.h"
#include "Recipe.h"
#include "Surface.h"

#include <glm/common.hpp>
#include <glm/geometric.hpp>

#include <algorithm>
#include <array>
#include <cmath>

// What stands on the stages: floors, glows of lamps, cones of light, a sky at dusk and a planet.

namespace zelvo::bake {

namespace {

float bell(float distance, float width) {
    return std::exp(-distance * distance / (width * width));
}

/// A white picture with an alpha. Coordinates are -1 to 1 from the middle, x right, y up.
template <float (*kCover)(const glm::vec2&)> Baked glowing(int width, int height) {
    Dice dice(301);
    return {
        picture(
            width,
            height,
            [&dice](const glm::vec2& share) {
                const glm::vec2 place{share.x * 2 - 1, 1 - share.y * 2};
                const float cover = kCover(place);
                // Against bands; not where nothing is, as that would draw the picture's square.
                const float dither = (dice.unit() - dice.unit()) / 255 * (cover > 0.004f ? 1 : 0);
                return glm::vec4(1, 1, 1, glm::clamp(cover + dither, 0.0f, 1.0f));
            }),
        {}};
}

/// A lamp that is out of focus: an even disc, a little brighter at its rim.
float bokeh(const glm::vec2& p) {
    const float r = glm::length(p);
    const float rim = 0.30f * bell(r - 0.84f, 0.10f);
    return (0.52f + 0.10f * r * r + rim) * (1 - glm::smoothstep(0.87f, 0.95f, r));
}

/// The round glow of a naked lamp, from a hot core to nothing.
float lampGlow(const glm::vec2& p) {
    const float r = glm::length(p);
    const float fade = std::max(0.0f, 1 - r);
    return (1.1f * bell(r, 0.045f) + 0.50f * std::exp(-r / 0.055f) + 0.24f * std::exp(-r / 0.20f)) *
           fade * fade;
}

/// The glow beside an upright tube of light. The tube is as high as the picture.
float tubeGlow(const glm::vec2& p) {
    const float away = std::abs(p.x);
    const float fade = std::max(0.0f, 1 - away);
    const float ends = 1 - glm::smoothstep(0.78f, 1.0f, std::abs(p.y));
    return (0.55f * std::exp(-away / 0.10f) + 0.20f * std::exp(-away / 0.32f)) * fade * fade * ends;
}

/// A cone of light in haze. The lamp is in the middle of the upper edge.
float lightCone(const glm::vec2& p) {
    const float down = (1 - p.y) / 2;
    const float half = 0.05f + 0.72f * down;
    const float across = p.x / half;
    const float body = std::exp(-across * across * 2.6f);
    const float swirl =
        1 + 0.16f * fractal({0.5f + 0.1f * across, 0.3f + 0.5f * down}, octaves(7, 4, 0.55f, 302));
    const float fade = 0.10f + 0.90f * std::pow(1 - down, 1.4f);
    const float ends = (1 - glm::smoothstep(0.75f, 1.0f, down)) *
                       (1 - glm::smoothstep(0.80f, 1.0f, std::abs(p.x)));
    return 0.62f * body * swirl * fade * ends;
}

/// Polished concrete: patches that are duller, a fine grain and a few hairlines. Lights and mirror
/// images break on it.
Baked floorRoughness(int width, int height) {
    return {
        greyPicture(Field::of(
            width,
            height,
            [](const glm::vec2& place) {
                const glm::vec2 bent = warped(place, 0.05f, octaves(4, 3, 0.5f, 311));
                const float patches = fractal(bent, octaves(3, 6, 0.55f, 312));
                const float grain = fractal(place, octaves(150, 2, 0.6f, 313));
                const float hair =
                    glm::smoothstep(0.985f, 1.0f, ridged(bent, octaves(6, 2, 0.4f, 314)));
                return 0.50f + 0.30f * patches + 0.07f * grain + 0.16f * hair;
            })),
        {}};
}

/// The brightness of the same concrete.
Baked floorTone(int width, int height) {
    return {
        greyPicture(Field::of(
            width,
            height,
            [](const glm::vec2& place) {
                const glm::vec2 bent = warped(place, 0.05f, octaves(4, 3, 0.5f, 311));
                const float patches = fractal(bent, octaves(3, 6, 0.55f, 312));
                const float grain = fractal(place, octaves(200, 2, 0.6f, 315));
                return 0.86f + 0.16f * patches + 0.05f * grain;
            })),
        {}};
}

/// Multiplies a floor: it gets dark towards its rim, so that it has no edge before a dark
/// background.
Baked floorFade(int width, int height) {
    Dice dice(316);
    return {
        picture(
            width,
            height,
            [&dice](const glm::vec2& place) {
                const float r = glm::length(place * 2.0f - 1.0f);
                const float light = std::pow(1 - glm::smoothstep(0.0f, 0.96f, r), 1.6f);
                const float grey =
                    glm::clamp(light + (dice.unit() - dice.unit()) / 255, 0.0f, 1.0f);
                return glm::vec4(grey, grey, grey, 1);
            }),
        {}};
}

glm::vec3 linear(float red, float green, float blue) {
    return glm::pow(glm::vec3(red, green, blue) / 255.0f, glm::vec3(2.2f));
}

/// The haze over open ground at dusk, from nothing at the stage to all at the horizon.
glm::vec3 hazeAtDusk() {
    return linear(132, 106, 84);
}

glm::vec4 shown(const glm::vec3& light, Dice& dice) {
    glm::vec4 result{1};
    for (int i = 0; i < 3; ++i) {
        result[i] = glm::clamp(
            std::pow(std::max(light[i], 0.0f), 1 / 2.2f) + (dice.unit() - dice.unit()) / 255,
            0.0f,
            1.0f);
    }
    return result;
}

/// A sky after sunset. At the horizon and below it has one colour, that of the haze over the
/// ground.
glm::vec3 dusk(const glm::vec3& direction) {
    const float elevation = elevationOf(direction);
    const float height = glm::clamp(elevation / 60, 0.0f, 1.0f);
    glm::vec3 sky = glm::mix(linear(150, 124, 106), linear(24, 50, 92), std::pow(height, 0.6f));
    sky += linear(255, 168, 84) * 0.80f * glow(direction, directionOf(0, 3), 26);

    // Layers of cloud at one height: finer and closer together towards the horizon.
    const glm::vec2 place =
        glm::vec2(direction.x, direction.z) / (std::max(direction.y, 0.0f) + 0.10f) * 0.060f + 0.5f;
    const glm::vec2 bent = warped(place, 0.025f, octaves(8, 3, 0.5f, 321));
    const float cover = glm::smoothstep(-0.10f, 0.50f, fractal(bent, octaves(9, 7, 0.55f, 322)));
    const float lit = glow(direction, directionOf(0, 2), 42);
    const glm::vec3 cloud = linear(72, 82, 108) + linear(255, 172, 104) * (0.95f * lit);
    sky = glm::mix(sky, cloud, 0.62f * cover);
    return glm::mix(hazeAtDusk(), sky, glm::smoothstep(0.3f, 9.0f, elevation));
}

/// How much of the ground is hidden by haze; 1 is the rim of the picture.
float hidden(float radius) {
    const float share = glm::clamp((radius - 0.05f) / 0.50f, 0.0f, 1.0f);
    return share * (2 - share);
}

/// Emitted by the ground.
Baked groundHaze(int width, int height) {
    Dice dice(324);
    return {
        picture(
            width,
            height,
            [&dice](const glm::vec2& place) {
                return shown(hazeAtDusk() * hidden(glm::length(place * 2.0f - 1.0f)), dice);
            }),
        {}};
}

/// What stands on the ground of the ruins, as a disc: middle (x, z), radius and height in scene units.
struct Standing {
    glm::vec2 middle;
    float radius;
    float height;
};

// clang-format off
constexpr auto kStandings = std::to_array<Standing>({
    {{-440, -110}, 44, 690}, {{440, -110}, 44, 690},
    {{-410, -360}, 44, 690}, {{410, -360}, 44, 300},
    {{-385, -600}, 44, 690}, {{385, -600}, 44, 690},
    {{-250, -420}, 30, 45},  {{-190, -330}, 22, 30},
    {{170, -285},  34, 66},  {{250, -270},  34, 66}, {{330, -255}, 34, 66},
});
// clang-format on

constexpr float kGroundSide = 9000;              // scene units, of the picture
constexpr glm::vec2 kShadowWay{0.940f, -0.342f}; // on the ground, away from the sun
constexpr float kShadowLength = 1.73f;           // of a thing of height 1

/// How much light the ruins leave to the ground: they never move, so their shadows in the sun and the
/// dark places at their feet are part of the picture.
float besideRuins(const glm::vec2& place) {
    const glm::vec2 at = (place - 0.5f) * kGroundSide;
    float light = 1;
    for (const Standing& thing : kStandings) {
        const glm::vec2 way = at - thing.middle;
        const float along = glm::dot(way, kShadowWay);
        const float aside = std::abs(way.x * kShadowWay.y - way.y * kShadowWay.x);
        const float end = thing.height * kShadowLength;
        const float soft = 8 + 0.07f * std::max(along, 0.0f);
        const float within = glm::smoothstep(thing.radius + soft, thing.radius - soft, aside) *
                             glm::smoothstep(-thing.radius, 0.0f, along) *
                             glm::smoothstep(end + 2 * soft, end - 2 * soft, along);
        const float away = std::max(0.0f, glm::length(way) - thing.radius) / 34;
        light *= (1 - 0.55f * within) * (1 - 0.55f * std::exp(-away * away));
    }
    return light;
}

/// The diffuse colour of the ground: what the haze leaves of it.
Baked groundTone(int width, int height) {
    Dice dice(325);
    return {
        picture(
            width,
            height,
            [&dice](const glm::vec2& place) {
                const glm::vec2 bent = warped(place, 0.02f, octaves(20, 4, 0.5f, 326));
                const float dust = 0.62f + 0.5f * fractal(bent, octaves(36, 6, 0.6f, 327));
                const float seen = 1 - hidden(glm::length(place * 2.0f - 1.0f));
                return shown(
                    linear(176, 158, 132) * (std::max(0.15f, dust) * seen * besideRuins(place)),
                    dice);
            }),
        {}};
}

/// Shade around the middle of a backdrop, as where a lamp's cone ends: none in the middle, where the
/// colour must stay exact, and none at the edge of the picture, which must not show.
Baked backdropShade(int width, int height) {
    Dice dice(328);
    return {
        picture(
            width,
            height,
            [&dice](const glm::vec2& place) {
                const float away = glm::length(place * 2.0f - 1.0f);
                const float shade =
                    glm::smoothstep(0.13f, 0.34f, away) * glm::smoothstep(1.0f, 0.45f, away);
                return glm::vec4(0, 0, 0, 0.34f * shade + (dice.unit() - dice.unit()) / 510);
            }),
        {}};
}

Baked duskSky(int width, int height) {
    Dice dice(323);
    return {
        picture(
            width,
            height,
            [&dice](const glm::vec2& place) { return shown(dusk(directionAt(place)), dice); }),
        {}};
}

/// Noise on a ball has no seam and no pinched poles if it is looked up by direction.
float ballNoise(const glm::vec3& direction, int cells, int count, std::uint32_t seed) {
    const Octaves sum = octaves(cells, count, 0.55f, seed);
    const glm::vec3 weight = glm::pow(glm::abs(direction), glm::vec3(4));
    const glm::vec3 p = direction * 0.21f + 0.5f;
    const float mixed = weight.x * fractal({p.y, p.z}, sum) + weight.y * fractal({p.z, p.x}, sum) +
                        weight.z * fractal({p.x, p.y}, sum);
    return mixed / (weight.x + weight.y + weight.z);
}

/// A cold rocky planet with darker plains.
Baked planet(int width, int height) {
    Dice dice(331);
    return {
        picture(
            width,
            height,
            [&dice](const glm::vec2& place) {
                const glm::vec3 direction = directionAt(place);
                const float plains =
                    glm::smoothstep(-0.12f, 0.16f, ballNoise(direction, 5, 5, 332));
                const float rock = ballNoise(direction, 16, 7, 333);
                const float crests = 1 - std::abs(ballNoise(direction, 11, 6, 334)) * 2.2f;
                const float tone =
                    glm::mix(0.34f, 0.62f, plains) + 0.42f * rock + 0.16f * crests * plains;
                return shown(
                    glm::mix(linear(92, 104, 128), linear(206, 196, 184), plains) *
                        std::max(0.05f, tone),
                    dice);
            }),
        {}};
}

// clang-format off
constexpr auto kRecipes = std::to_array<Recipe>({
    {"bokeh_disc.png",      Repeats::never,    256,  256,  glowing<bokeh>    },
    {"lamp_glow.png",       Repeats::never,    512,  512,  glowing<lampGlow> },
    {"tube_glow.png",       Repeats::never,    128,  128,  glowing<tubeGlow> },
    {"light_cone.png",      Repeats::never,    256,  512,  glowing<lightCone>},
    {"floor_roughness.jpg", Repeats::bothWays, 1024, 1024, floorRoughness    },
    {"floor_tone.jpg",      Repeats::bothWays, 1024, 1024, floorTone         },
    {"floor_fade.png",      Repeats::never,    512,  512,  floorFade         },
    {"ground_haze.png",     Repeats::never,    1024, 1024, groundHaze        },
    {"ground_tone.jpg",     Repeats::never,    2048, 2048, groundTone        },
    {"backdrop_shade.png",  Repeats::never,    1024, 1024, backdropShade     },
    {"dusk_sky.jpg",        Repeats::sideways, 4096, 2048, duskSky           },
    {"planet.jpg",          Repeats::sideways, 2048, 1024, planet            },
});
// clang-format on

} // namespace

std::span<const Recipe> stageRecipes() {
    return kRecipes;
}

} // namespace zelvo::bake
