// SPDX-License-Identifier: MIT
#include "Recipe.h"
#include "Surface.h"

#include <glm/common.hpp>
#include <glm/geometric.hpp>

#include <array>
#include <cmath>

// Drawings shown where the user has not chosen a picture.

namespace zelvo::bake {

namespace {

/// 1 inside a shape, 0 outside, with a soft edge of about a pixel; `distance` is negative inside.
float inside(float distance) {
    constexpr float kSoft = 0.0016f;
    return 1 - glm::smoothstep(-kSoft, kSoft, distance);
}

float roundedBox(const glm::vec2& p, const glm::vec2& half, float radius) {
    const glm::vec2 q = glm::abs(p) - half + radius;
    return glm::length(glm::max(q, glm::vec2(0))) + std::min(std::max(q.x, q.y), 0.0f) - radius;
}

/// A mountain: two slopes that meet at a rounded peak.
float mountain(const glm::vec2& p, const glm::vec2& peak, float slope) {
    const float across = std::sqrt((p.x - peak.x) * (p.x - peak.x) + 0.0009f);
    return (p.y - (peak.y - across * slope)) / std::sqrt(1 + slope * slope);
}

/// Mountains at dusk. The origin is in the middle, y up; the ridges are within half a unit of it.
glm::vec3 dusk(const glm::vec2& p) {
    const glm::vec3 sky = glm::mix(
        glm::vec3(0.96f, 0.62f, 0.40f),
        glm::vec3(0.20f, 0.30f, 0.72f),
        glm::smoothstep(-0.12f, 0.36f, p.y));
    glm::vec3 view = glm::mix(
        sky,
        glm::vec3(1.0f, 0.93f, 0.78f),
        inside(glm::length(p - glm::vec2(0.14f, 0.13f)) - 0.075f));
    view =
        glm::mix(view, glm::vec3(0.30f, 0.28f, 0.55f), inside(mountain(p, {0.17f, 0.03f}, 0.95f)));
    view =
        glm::mix(view, glm::vec3(0.17f, 0.17f, 0.38f), inside(mountain(p, {-0.12f, 0.13f}, 1.05f)));
    return glm::mix(
        view, glm::vec3(0.09f, 0.09f, 0.20f), inside(p.y + 0.235f + 0.02f * std::sin(p.x * 9)));
}

glm::vec4 placeholder(const glm::vec2& place) {
    const glm::vec2 p{place.x - 0.5f, 0.5f - place.y};
    const float card = roundedBox(p, {0.46f, 0.46f}, 0.11f);
    const float frame = std::abs(roundedBox(p, {0.405f, 0.405f}, 0.075f)) - 0.0075f;

    glm::vec3 colour = glm::mix(
        glm::vec3(0.085f, 0.095f, 0.13f),
        glm::vec3(0.17f, 0.19f, 0.26f),
        place.y * 0.2f + 0.8f * (1 - place.y));
    const float picture = inside(roundedBox(p, {0.36f, 0.36f}, 0.045f));
    colour = glm::mix(colour, dusk(p), picture);
    colour = glm::mix(colour, glm::vec3(0.93f, 0.94f, 0.97f), inside(frame));
    return {colour, inside(card)};
}

Baked logoPlaceholder(int width, int height) {
    return {picture(width, height, placeholder), {}};
}

/// The same view without a frame, and brighter: the example picture for masks.
glm::vec4 postcard(const glm::vec2& place) {
    const glm::vec2 p{1.1f * (place.x - 0.5f), 0.72f * (0.5f - place.y)};
    const glm::vec2 sun{0.14f, 0.13f};
    const float away = glm::length(p - sun);
    const float turn = std::atan2(p.y - sun.y, p.x - sun.x);
    const float skyline = std::max(
        inside(mountain(p, {0.17f, 0.03f}, 0.95f)), inside(mountain(p, {-0.12f, 0.13f}, 1.05f)));
    const float rays = (0.5f + 0.5f * std::sin(turn * 14)) * (1 - skyline);
    const glm::vec3 glow = glm::vec3(1.0f, 0.55f, 0.25f) *
                           (0.10f * rays + 0.35f * std::exp(-away * 7) * (1 - 0.6f * skyline));
    const glm::vec3 haze =
        glm::vec3(0.75f, 0.30f, 0.45f) * skyline * (0.55f * glm::smoothstep(0.10f, -0.30f, p.y));
    return {glm::min(dusk(p) * 1.08f + glow + haze, glm::vec3(1)), 1};
}

Baked postcardAtDusk(int width, int height) {
    return {picture(width, height, postcard), {}};
}

constexpr auto kRecipes = std::to_array<Recipe>({
    {"LogoPlaceholder.png", Repeats::never, 1024, 1024, logoPlaceholder},
    {"Postcard.png", Repeats::never, 1280, 840, postcardAtDusk},
});

} // namespace

std::span<const Recipe> placeholderRecipes() {
    return kRecipes;
}

} // namespace zelvo::bake
