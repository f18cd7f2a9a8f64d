// SPDX-License-Identifier: MIT
#include "Noise.h"
#include "Recipe.h"
#include "Surface.h"

#include <glm/common.hpp>
#include <glm/geometric.hpp>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

// Masks for pictures: black shows the picture, white hides it. Each drawing returns the share that
// is shown at a place: x right, y up, -0.5 to 0.5 from the middle.

namespace zelvo::bake {

namespace {

constexpr float kPi = std::numbers::pi_v<float>;

/// The share of a pixel inside a shape; `distance` is negative inside.
float inside(float distance) {
    constexpr float kSoft = 0.0015f;
    return 1 - glm::smoothstep(-kSoft, kSoft, distance);
}

float box(const glm::vec2& p, const glm::vec2& half, float radius) {
    const glm::vec2 q = glm::abs(p) - half + radius;
    return glm::length(glm::max(q, glm::vec2(0))) + std::min(std::max(q.x, q.y), 0.0f) - radius;
}

/// Signed distance to a closed polygon; a point is inside if a ray crosses an odd number of edges.
float polygon(const glm::vec2& p, std::span<const glm::vec2> corners) {
    float nearest = 10;
    bool isInside = false;
    glm::vec2 from = corners.back();
    for (const glm::vec2& to : corners) {
        const glm::vec2 along = to - from;
        const float t = std::clamp(glm::dot(p - from, along) / glm::dot(along, along), 0.0f, 1.0f);
        nearest = std::min(nearest, glm::distance(p, from + along * t));
        if ((from.y > p.y) != (to.y > p.y) &&
            p.x < from.x + along.x * (p.y - from.y) / (to.y - from.y))
            isInside = !isInside;
        from = to;
    }
    return isInside ? -nearest : nearest;
}

/// Corners alternately on an outer and an inner circle, the first one at the top.
template <std::size_t kCorners>
std::array<glm::vec2, kCorners> starCorners(float outer, float inner, float drop) {
    std::array<glm::vec2, kCorners> corners;
    for (std::size_t i = 0; i < kCorners; ++i) {
        const float angle = 2 * kPi * static_cast<float>(i) / static_cast<float>(kCorners);
        const float radius = i % 2 == 0 ? outer : inner;
        corners[i] = {radius * std::sin(angle), radius * std::cos(angle) - drop};
    }
    return corners;
}

/// The coordinates for noise: 0 to 1.
glm::vec2 noisePlace(const glm::vec2& p) {
    return p + 0.5f;
}

// Simple shapes.

float disc(const glm::vec2& p) {
    return inside(glm::length(p) - 0.485f);
}

float roundedSquare(const glm::vec2& p) {
    return inside(box(p, glm::vec2(0.48f), 0.1f));
}

float archWindow(const glm::vec2& p) {
    const float top = glm::length(p - glm::vec2(0, 0.12f)) - 0.36f;
    return inside(std::min(top, box(p + glm::vec2(0, 0.18f), {0.36f, 0.3f}, 0.02f)));
}

float hexagon(const glm::vec2& p) {
    static const auto kCorners = starCorners<6>(0.47f, 0.47f, 0);
    return inside(polygon(p, kCorners) - 0.015f);
}

float star(const glm::vec2& p) {
    static const auto kCorners = starCorners<10>(0.5f, 0.25f, 0.045f);
    return inside(polygon(p, kCorners) - 0.012f);
}

float heart(const glm::vec2& p) {
    static const auto kCorners = [] {
        std::array<glm::vec2, 96> corners;
        for (std::size_t i = 0; i < corners.size(); ++i) {
            const float t = 2 * kPi * static_cast<float>(i) / static_cast<float>(corners.size());
            const float s = std::sin(t);
            const float y =
                13 * std::cos(t) - 5 * std::cos(2 * t) - 2 * std::cos(3 * t) - std::cos(4 * t);
            corners[i] = glm::vec2(16 * s * s * s, y + 2.6f) * 0.0288f;
        }
        return corners;
    }();
    return inside(polygon(p, kCorners));
}

float diamond(const glm::vec2& p) {
    static const auto kCorners = starCorners<4>(0.465f, 0.465f, 0);
    return inside(polygon(p, kCorners) - 0.02f);
}

float scallopedSeal(const glm::vec2& p) {
    const float wave = 0.022f * std::cos(18 * std::atan2(p.x, p.y));
    return inside(glm::length(p) - 0.455f - wave);
}

// Cards and panels.

float slantedCards(const glm::vec2& p) {
    const glm::vec2 q{p.x - 0.22f * p.y, p.y};
    const float card = box(q, {0.27f, 0.46f}, 0.012f);
    const float bar = box({std::abs(q.x) - 0.325f, q.y}, {0.03f, 0.46f}, 0.008f);
    return inside(std::min(card, bar));
}

float panels(const glm::vec2& p) {
    constexpr std::array<float, 5> kLifts{-0.045f, 0.03f, 0, 0.045f, -0.02f};
    constexpr float kPitch = 0.194f;
    float nearest = 1;
    for (std::size_t i = 0; i < kLifts.size(); ++i) {
        const float x = (static_cast<float>(i) - 2) * kPitch;
        nearest = std::min(nearest, box(p - glm::vec2(x, kLifts[i]), {0.087f, 0.43f}, 0.02f));
    }
    return inside(nearest);
}

float diagonalSlices(const glm::vec2& p) {
    constexpr float kPitch = 0.17f;
    const float along = p.x + 0.55f * p.y;
    const float slice = std::floor(along / kPitch + 0.5f);
    const float across = std::abs(along - slice * kPitch) - 0.5f * kPitch + 0.011f;
    const float lift = (static_cast<int>(slice) % 2 == 0 ? 0.035f : -0.035f);
    return inside(std::max(across * 0.87f, box(p - glm::vec2(0, lift), {0.47f, 0.42f}, 0)));
}

float blinds(const glm::vec2& p) {
    constexpr float kCount = 15;
    const float place = (p.x + 0.5f) * kCount;
    const float bar = std::floor(place);
    const float width = 0.1f + 0.9f * glm::smoothstep(0.0f, kCount - 3, bar);
    return inside((std::abs(place - bar - 0.5f) - width / 2 - 0.003f) / kCount);
}

float filmStrip(const glm::vec2& p) {
    constexpr float kHolePitch = 1.0f / 12;
    const float strip = std::abs(p.y) - 0.45f;
    const float holeX = p.x - (std::floor(p.x / kHolePitch) + 0.5f) * kHolePitch;
    const float hole = box({holeX, std::abs(p.y) - 0.405f}, {0.022f, 0.027f}, 0.009f);
    const float edge = std::abs(std::abs(p.y) - 0.355f) - 0.004f;
    const float third = std::abs(std::abs(p.x) - 1.0f / 6) - 0.01f;
    const float gap = std::max(third, std::abs(p.y) - 0.355f);
    return inside(std::max({strip, -hole, -edge, -gap}));
}

float stamp(const glm::vec2& p) {
    constexpr float kSide = 0.46f;
    constexpr float kPitch = kSide * 2 / 14;
    const auto tooth = [](float v) { return v - std::round(v / kPitch) * kPitch; };
    const float upright = glm::length(glm::vec2(std::abs(p.x) - kSide, tooth(p.y)));
    const float level = glm::length(glm::vec2(tooth(p.x), std::abs(p.y) - kSide));
    const float hole = std::min(upright, level) - 0.019f;
    const float line = std::abs(box(p, glm::vec2(0.405f), 0)) - 0.003f;
    return inside(std::max({box(p, glm::vec2(kSide), 0), -hole, -line}));
}

// Halftones and fades.

float halftone(const glm::vec2& p) {
    constexpr float kPitch = 0.034f;
    constexpr float kTurn = 0.5f;
    const glm::vec2 q{
        p.x * std::cos(kTurn) - p.y * std::sin(kTurn),
        p.x * std::sin(kTurn) + p.y * std::cos(kTurn)};
    const glm::vec2 middle = glm::round(q / kPitch) * kPitch;
    // A dot's size depends on its middle, so that dots stay round.
    const float x = middle.x * std::cos(kTurn) + middle.y * std::sin(kTurn);
    const float radius = kPitch * 0.76f * (1 - glm::smoothstep(-0.22f, 0.46f, x));
    return radius < 0.0012f ? 0 : inside(glm::distance(q, middle) - radius);
}

float fadeOut(const glm::vec2& p) {
    return glm::smoothstep(-0.48f, 0.1f, p.y);
}

float softOval(const glm::vec2& p) {
    return 1 - glm::smoothstep(0.26f, 0.495f, glm::length(p));
}

float honeycomb(const glm::vec2& p) {
    constexpr float kCell = 0.134f;
    const glm::vec2 pitch{kCell, kCell * 1.7320508f};
    const glm::vec2 even = glm::round(p / pitch) * pitch;
    const glm::vec2 odd = (glm::floor(p / pitch) + 0.5f) * pitch;
    const glm::vec2 middle = glm::distance(p, even) < glm::distance(p, odd) ? even : odd;
    const glm::vec2 q = glm::abs(p - middle);
    const float cell = std::max(q.x, q.x * 0.5f + q.y * 0.8660254f);
    const bool isNear = glm::length(middle) < 0.43f;
    return isNear ? inside(cell - kCell * 0.5f + 0.006f) : 0;
}

// Hand-drawn shapes.

float brushStrokes(const glm::vec2& p) {
    constexpr int kStrokes = 7;
    constexpr float kPitch = 0.125f;
    float shown = 0;
    Dice dice(21);
    for (int i = 0; i < kStrokes; ++i) {
        const float middle = (static_cast<float>(i) - 3) * kPitch + dice.between(-0.012f, 0.012f);
        const float left = dice.between(-0.48f, -0.40f);
        const float right = dice.between(0.34f, 0.47f);
        const float slope = dice.between(-0.05f, 0.05f);
        const float y = p.y - middle - slope * p.x;
        // Streaks along the stroke: noise stretched sideways.
        const auto seed = static_cast<std::uint32_t>(40 + i);
        const float streak = fractal({p.x * 0.06f + 0.3f, y + 0.5f}, octaves(48, 3, 0.7f, seed));
        const float rough = 0.010f * fractal(noisePlace(p), octaves(14, 3, 0.6f, seed));
        const float across = std::abs(y) - 0.075f - rough;
        const float ends = std::max(left + 0.05f * streak - p.x, p.x - right - 0.09f * streak);
        const float dry = glm::smoothstep(right - 0.35f, right + 0.05f, p.x);
        const float paint = glm::smoothstep(-0.06f, 0.06f, streak + 0.52f - 0.62f * dry);
        shown = std::max(shown, inside(std::max(across, ends)) * paint);
    }
    return shown;
}

float tornPaper(const glm::vec2& p) {
    const glm::vec2 place = noisePlace(p);
    const float coarse = fractal(place, octaves(6, 2, 0.5f, 71)) * 0.045f;
    const float fine = fractal(place, octaves(24, 4, 0.62f, 72)) * 0.02f;
    return inside(box(p, {0.45f, 0.43f}, 0) + coarse + fine);
}

/// Drops around a blot; neighbours melt together.
float splatter(const glm::vec2& p) {
    constexpr int kDrops = 90;
    constexpr float kJoin = 0.016f;
    const glm::vec2 place = noisePlace(p);
    const float rough = fractal(place, octaves(9, 3, 0.5f, 5)) * 0.035f;
    float sum = std::exp(-(glm::length(p) - 0.30f + rough) / kJoin);
    Dice dice(9);
    for (int i = 0; i < kDrops; ++i) {
        const float angle = dice.between(0, 2 * kPi);
        const float way = dice.unit();
        const float reach = 0.28f + 0.21f * way;
        const float size = dice.between(0.004f, 0.034f) * (1.15f - way);
        const glm::vec2 out{std::cos(angle), std::sin(angle)};
        const glm::vec2 q = p - out * reach;
        // Longer in the direction of flight.
        const float along = glm::dot(q, out);
        const float across = glm::dot(q, glm::vec2(-out.y, out.x));
        sum += std::exp(-(glm::length(glm::vec2(along * 0.6f, across)) - size) / kJoin * 2.0f);
    }
    return inside(-kJoin * std::log(sum));
}

float inkCloud(const glm::vec2& p) {
    const glm::vec2 place = warped(noisePlace(p), 0.05f, octaves(4, 3, 0.5f, 31));
    const float cloud = fractal(place, octaves(4, 5, 0.55f, 32));
    const float ground = glm::smoothstep(0.56f, 0.24f, glm::length(p));
    const float rim = glm::smoothstep(0.5f, 0.42f, std::max(std::abs(p.x), std::abs(p.y)));
    return glm::smoothstep(0.22f, 0.55f, ground + 0.75f * cloud) * rim;
}

template <float (*kShown)(const glm::vec2&)> Baked mask(int width, int height) {
    return {
        picture(
            width,
            height,
            [](const glm::vec2& place) {
                const float hidden = 1 - kShown({place.x - 0.5f, 0.5f - place.y});
                return glm::vec4(glm::vec3(hidden), 1);
            }),
        {}};
}

constexpr int kSide = 512;

// clang-format off
constexpr auto kRecipes = std::to_array<Recipe>({
    {"Mask1.png",  Repeats::never, kSide, kSide, mask<disc>          },
    {"Mask2.png",  Repeats::never, kSide, kSide, mask<roundedSquare> },
    {"Mask3.png",  Repeats::never, kSide, kSide, mask<hexagon>       },
    {"Mask4.png",  Repeats::never, kSide, kSide, mask<star>          },
    {"Mask5.png",  Repeats::never, kSide, kSide, mask<heart>         },
    {"Mask6.png",  Repeats::never, kSide, kSide, mask<diamond>       },
    {"Mask7.png",  Repeats::never, kSide, kSide, mask<archWindow>    },
    {"Mask8.png",  Repeats::never, kSide, kSide, mask<scallopedSeal> },
    {"Mask9.png",  Repeats::never, kSide, kSide, mask<stamp>         },
    {"Mask10.png", Repeats::never, kSide, kSide, mask<brushStrokes>  },
    {"Mask11.png", Repeats::never, kSide, kSide, mask<tornPaper>     },
    {"Mask12.png", Repeats::never, kSide, kSide, mask<splatter>      },
    {"Mask13.png", Repeats::never, kSide, kSide, mask<inkCloud>      },
    {"Mask14.png", Repeats::never, kSide, kSide, mask<filmStrip>     },
    {"Mask15.png", Repeats::never, kSide, kSide, mask<slantedCards>  },
    {"Mask16.png", Repeats::never, kSide, kSide, mask<diagonalSlices>},
    {"Mask17.png", Repeats::never, kSide, kSide, mask<panels>        },
    {"Mask18.png", Repeats::never, kSide, kSide, mask<blinds>        },
    {"Mask19.png", Repeats::never, kSide, kSide, mask<honeycomb>     },
    {"Mask20.png", Repeats::never, kSide, kSide, mask<halftone>      },
    {"Mask21.png", Repeats::never, kSide, kSide, mask<fadeOut>       },
    {"Mask22.png", Repeats::never, kSide, kSide, mask<softOval>      },
});
// clang-format on

} // namespace

std::span<const Recipe> maskRecipes() {
    return kRecipes;
}

} // namespace zelvo::bake
