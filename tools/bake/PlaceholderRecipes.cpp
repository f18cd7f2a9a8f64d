// SPDX-License-Identifier: MIT
#include "Recipe.h"
#include "Surface.h"

#include <glm/common.hpp>
#include <glm/geometric.hpp>

#include <array>
#include <cmath>

// Drawings that stand where the user has not put a picture yet.

namespace zelvo::bake {

namespace {

/// 1 inside a shape, 0 outside, soft over a pixel or so; the distance is negative inside.
float inside(float distance) {
    constexpr float kSoft = 0.0016f;
    return 1 - glm::smoothstep(-kSoft, kSoft, distance);
}

float roundedBox(const glm::vec2& p, const glm::vec2& half, float radius) {
    const glm::vec2 q = glm::abs(p) - half + radius;
    return glm::length(glm::max(q, glm::vec2(0))) + std::min(std::max(q.x, q.y), 0.0f) - radius;
}

/// A mountain: below two slopes that meet at a peak with a rounded tip.
float mountain(const glm::vec2& p, const glm::vec2& peak, float slope) {
    const float across = std::sqrt((p.x - peak.x) * (p.x - peak.x) + 0.0009f);
    return (p.y - (peak.y - across * slope)) / std::sqrt(1 + slope * slope);
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
    view = glm::mix(
        view, glm::vec3(0.09f, 0.09f, 0.20f), inside(p.y + 0.235f + 0.02f * std::sin(p.x * 9)));
    colour = glm::mix(colour, view, picture);
    colour = glm::mix(colour, glm::vec3(0.93f, 0.94f, 0.97f), inside(frame));
    return {colour, inside(card)};
}

Baked logoPlaceholder(int width, int height) {
    return {picture(width, height, placeholder), {}};
}

constexpr auto kRecipes = std::to_array<Recipe>({
    {"LogoPlaceholder.png", Repeats::never, 1024, 1024, logoPlaceholder},
});

} // namespace

std::span<const Recipe> placeholderRecipes() {
    return kRecipes;
}

} // namespace zelvo::bake
