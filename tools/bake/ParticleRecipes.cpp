// SPDX-License-Identifier: MIT
#include "Lightning.h"
#include "Noise.h"
#include "Recipe.h"
#include "Surface.h"

#include <glm/common.hpp>
#include <glm/geometric.hpp>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

// Pictures of single particles: white with an alpha shape; the colour is added when drawing.
// Coordinates are -1 to 1 from the middle, x right, y up. All fade out before the edge.

namespace zelvo::bake {

namespace {

constexpr float kPi = std::numbers::pi_v<float>;

/// A picture from a function that returns the alpha (0 to 1) of a place.
Baked sprite(int width, int height, float (*cover)(const glm::vec2& place)) {
    return {
        picture(
            width,
            height,
            [cover](const glm::vec2& share) {
                const glm::vec2 place{share.x * 2 - 1, 1 - share.y * 2};
                return glm::vec4(1, 1, 1, std::clamp(cover(place), 0.0f, 1.0f));
            }),
        {}};
}

float bell(float distance, float width) {
    return std::exp(-distance * distance / (width * width));
}

/// 1 inside, 0 at the edge.
float vignette(const glm::vec2& p) {
    return 1 - glm::smoothstep(0.75f, 1.0f, std::max(std::abs(p.x), std::abs(p.y)));
}

float dot(const glm::vec2& p) {
    const float r = glm::length(p);
    return (0.75f * bell(r, 0.30f) + 0.4f * bell(r, 0.12f) + 0.2f * bell(r, 0.55f)) *
           (1 - glm::smoothstep(0.6f, 1.0f, r));
}

/// A glint with four points.
float glint(const glm::vec2& p) {
    const float cross = bell(p.y, 0.035f + 0.02f * (1 - std::abs(p.x))) * bell(p.x, 0.42f) +
                        bell(p.x, 0.035f + 0.02f * (1 - std::abs(p.y))) * bell(p.y, 0.42f);
    return (cross + bell(glm::length(p), 0.16f) + 0.25f * bell(glm::length(p), 0.4f)) * vignette(p);
}

/// A comet along y, with its head at the top.
float spark(const glm::vec2& p) {
    const float along = (p.y + 1) / 2;
    const float width = 0.06f + 0.22f * along * along;
    const float tail = along * along * (1 - glm::smoothstep(0.72f, 0.98f, along));
    return (bell(p.x, width) + 0.8f * bell(p.x, 0.4f * width)) * tail;
}

/// A long ray along y, bright in the middle.
float beam(const glm::vec2& p) {
    const float fade = std::pow(std::max(0.0f, 1 - p.y * p.y), 1.6f);
    return (0.45f * bell(p.x, 0.42f) + 0.75f * bell(p.x, 0.12f)) * fade *
           (1 - glm::smoothstep(0.7f, 1.0f, std::abs(p.x)));
}

float smoke(const glm::vec2& p) {
    const glm::vec2 tile = p * 0.5f + 0.5f;
    const glm::vec2 bent = warped(tile, 0.10f, octaves(3, 3, 0.5f, 71));
    const float billows = 0.5f + 0.62f * fractal(bent, octaves(3, 5, 0.55f, 17));
    const float r = glm::length(p) + 0.24f * fractal(tile, octaves(3, 3, 0.5f, 91));
    return (1 - glm::smoothstep(0.10f, 0.88f, r)) * std::clamp(billows, 0.0f, 1.0f) * vignette(p);
}

float density(const glm::vec2& p) {
    const glm::vec2 tile = p * 0.5f + 0.5f;
    const glm::vec2 bent = warped(tile, 0.08f, octaves(4, 3, 0.5f, 37));
    const float billows = 0.75f + 0.8f * fractal(bent, octaves(4, 5, 0.5f, 19));
    const float r =
        glm::length(p * glm::vec2(0.95f, 1.25f)) + 0.3f * fractal(tile, octaves(3, 2, 0.5f, 67));
    return (1 - glm::smoothstep(0.05f, 0.8f, r)) * std::clamp(billows, 0.0f, 1.0f);
}

/// A cloud, lit from above: its underside is grey.
Baked cloud(int width, int height) {
    return {
        picture(
            width,
            height,
            [](const glm::vec2& share) {
                const glm::vec2 p{share.x * 2 - 1, 1 - share.y * 2};
                const float here = density(p);
                const float above = density(p + glm::vec2(0.05f, 0.12f));
                const float shade = std::clamp(0.9f + 0.6f * (here - above), 0.68f, 1.0f);
                return glm::vec4(glm::vec3(shade), std::min(1.0f, 1.3f * here) * vignette(p));
            }),
        {}};
}

/// A flame: ragged, hot in the middle.
float flame(const glm::vec2& p) {
    const glm::vec2 tile = p * 0.5f + 0.5f;
    const float licks =
        ridged(warped(tile, 0.16f, octaves(2, 3, 0.5f, 5)), octaves(2, 4, 0.5f, 23));
    const float r = glm::length(p * glm::vec2(1.1f, 0.95f)) + 0.3f * (0.5f - licks);
    const float body = 1 - glm::smoothstep(0.05f, 0.8f, r);
    return body * (0.35f + 0.85f * licks) * vignette(p);
}

/// A line of the given width where the distance is 0, with a faint glow.
float outline(float distance, float width) {
    const float line = 1 - glm::smoothstep(width, width + 0.03f, std::abs(distance));
    return line + 0.3f * bell(distance, 0.11f);
}

float triangle(const glm::vec2& p) {
    float distance = -10;
    for (int side = 0; side < 3; ++side) {
        const float turn = kPi / 2 + kPi + static_cast<float>(side) * 2 * kPi / 3;
        distance = std::max(distance, glm::dot(p, {std::cos(turn), std::sin(turn)}) - 0.36f);
    }
    return outline(distance, 0.035f) * vignette(p);
}

float ring(const glm::vec2& p) {
    return outline(glm::length(p) - 0.7f, 0.035f) * vignette(p);
}

float square(const glm::vec2& p) {
    return outline(std::max(std::abs(p.x), std::abs(p.y)) - 0.6f, 0.035f) * vignette(p);
}

float hexagon(const glm::vec2& p) {
    float distance = -10;
    for (int side = 0; side < 6; ++side) {
        const float turn = static_cast<float>(side) * kPi / 3;
        distance = std::max(distance, glm::dot(p, {std::cos(turn), std::sin(turn)}) - 0.6f);
    }
    const float filled = distance < 0 ? 0.16f : 0.0f;
    return (filled + outline(distance, 0.02f)) * vignette(p);
}

/// A wave that runs outwards: sharp outside, soft inside.
float shock(const glm::vec2& p) {
    const float r = glm::length(p);
    const float wave = r < 0.84f ? bell(r - 0.84f, 0.17f) : bell(r - 0.84f, 0.035f);
    const float turn = std::atan2(p.y, p.x) / (2 * kPi) + 0.5f;
    const float grain = 0.72f + 0.45f * fractal({turn, 0.3f}, octaves(9, 4, 0.6f, 41));
    return wave * grain * (1 - glm::smoothstep(0.93f, 1.0f, r));
}

/// A drop with a bright edge.
float drop(const glm::vec2& p) {
    const float r = glm::length(p);
    const float body = 1 - glm::smoothstep(0.62f, 0.70f, r);
    const float shine = bell(glm::length(p - glm::vec2(-0.22f, 0.26f)), 0.16f);
    return body * (0.25f + 0.6f * glm::smoothstep(0.2f, 0.66f, r)) + shine;
}

/// The sweeping comet: a head that looks to the right, a tail of fibres that wave and fade, and
/// glints along it.
float streak(const glm::vec2& p) {
    constexpr float kHead = 0.35f; // where the tip is
    const float behind = kHead - p.x;
    const float tail = std::clamp(behind / (1 + kHead), 0.0f, 1.0f);
    const float along = behind < 0 ? 0.0f : std::pow(1 - tail, 1.3f);
    // The picture is twelve times as wide as high.
    const float r = glm::length(glm::vec2(behind * (behind < 0 ? 9.0f : 5.0f), p.y));
    const float head = bell(r, 0.15f) + 0.5f * bell(r, 0.3f) + 0.3f * bell(r, 0.5f);
    const float width = 0.10f + 0.30f * tail;
    const float lines =
        fractal({(p.x + 1) * 0.05f, (p.y / (1 + tail) + 1) / 2}, octaves(14, 4, 0.6f, 57));
    const float fibres = (0.55f + 2.4f * std::max(0.0f, lines)) * bell(p.y, width);
    const float core = 0.8f * bell(p.y, 0.035f) * (1 - tail);
    const float spot = fractal({(p.x + 1) / 2, (p.y + 1) / 24}, octaves(160, 1, 0.5f, 33));
    const float glints = 0.9f * glm::smoothstep(0.5f, 0.7f, spot) * bell(p.y, 0.42f);
    const float ray = 0.6f * bell(p.y, 0.012f) * bell(behind, 0.16f); // through the head
    return (head + ray + along * (core + fibres + glints)) *
           (1 - glm::smoothstep(0.72f, 1.0f, std::abs(p.y))) *
           (1 - glm::smoothstep(0.6f, 1.0f, p.x));
}

template <std::uint32_t seed> Baked lightning(int width, int height) {
    return lightningPicture(width, height, seed);
}

template <float (*cover)(const glm::vec2&)> Baked made(int width, int height) {
    return sprite(width, height, cover);
}

/// As the transparent slot needs it: black is opaque, white is clear.
Baked streakCover(int width, int height) {
    Baked baked = made<streak>(width, height);
    for (std::size_t i = 0; i < baked.picture.pixels.size(); i += 4) {
        std::uint8_t* pixel = &baked.picture.pixels[i];
        const float clear = 1 - static_cast<float>(pixel[3]) / 255;
        std::fill_n(pixel, 3, byteOf(image::sRGBFromLinear(clear)));
        pixel[3] = 255;
    }
    return baked;
}

// clang-format off
constexpr auto kRecipes = std::to_array<Recipe>({
    {"particle_beam.png",     Repeats::never, 32,   256, made<beam>    },
    {"particle_bolt1.png",    Repeats::never, 640,  640, lightning<3>  },
    {"particle_bolt2.png",    Repeats::never, 640,  640, lightning<14> },
    {"particle_bolt3.png",    Repeats::never, 640,  640, lightning<25> },
    {"particle_bolt4.png",    Repeats::never, 640,  640, lightning<36> },
    {"particle_cloud.png",    Repeats::never, 256,  256, cloud         },
    {"particle_dot.png",      Repeats::never, 64,   64,  made<dot>     },
    {"particle_drop.png",     Repeats::never, 64,   64,  made<drop>    },
    {"particle_flame.png",    Repeats::never, 128,  128, made<flame>   },
    {"particle_glint.png",    Repeats::never, 128,  128, made<glint>   },
    {"particle_hexagon.png",  Repeats::never, 128,  128, made<hexagon> },
    {"particle_ring.png",     Repeats::never, 128,  128, made<ring>    },
    {"particle_shock.png",    Repeats::never, 512,  512, made<shock>   },
    {"particle_smoke.png",    Repeats::never, 256,  256, made<smoke>   },
    {"particle_spark.png",    Repeats::never, 32,   128, made<spark>   },
    {"particle_square.png",   Repeats::never, 128,  128, made<square>  },
    {"particle_triangle.png", Repeats::never, 128,  128, made<triangle>},
    {"Streak_1.png",          Repeats::never, 2048, 256, streakCover   },
});
// clang-format on

} // namespace

std::span<const Recipe> particleRecipes() {
    return kRecipes;
}

} // namespace zelvo::bake
