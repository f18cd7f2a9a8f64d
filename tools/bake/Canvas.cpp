// SPDX-License-Identifier: MIT
#include "Canvas.h"

#include <glm/geometric.hpp>

#include <algorithm>
#include <cmath>

namespace zelvo::bake {

namespace {

/// The height at a distance from the stroke's middle line (for boxes, from the middle line of the
/// rounded edge).
float heightAt(float distance, const Brush& brush) {
    const float radius = brush.width / 2;
    const float part = distance / radius;
    switch (brush.profile) {
    case Profile::flat:
        return brush.height *
               (1 - glm::smoothstep(radius - brush.softness, radius + brush.softness, distance));
    case Profile::round:
        return part < 1 ? brush.height * std::sqrt(1 - part * part) : 0;
    case Profile::sharp:
        return part < 1 ? brush.height * (1 - part) : 0;
    }
    return 0;
}

} // namespace

template <class Distance>
void Canvas::apply(
    const glm::vec2& low, const glm::vec2& high, const Brush& brush, Distance distance) {
    const auto side = static_cast<float>(field_.width);
    const float margin = brush.width / 2 + brush.softness;
    const glm::ivec2 first(glm::floor((low - margin) * side));
    const glm::ivec2 last(glm::ceil((high + margin) * side));
    for (int y = first.y; y <= last.y; ++y) {
        for (int x = first.x; x <= last.x; ++x) {
            float& place = field_.at(x, y);
            place = std::max(place, heightAt(distance(field_.middle(x, y)), brush));
        }
    }
}

void Canvas::line(const glm::vec2& from, const glm::vec2& to, const Brush& brush) {
    const glm::vec2 along = to - from;
    const float squared = std::max(glm::dot(along, along), 1e-12f);
    apply(glm::min(from, to), glm::max(from, to), brush, [&](const glm::vec2& p) {
        const float t = std::clamp(glm::dot(p - from, along) / squared, 0.0f, 1.0f);
        return glm::distance(p, from + along * t);
    });
}

void Canvas::polyline(std::span<const glm::vec2> points, const Brush& brush) {
    for (std::size_t i = 0; i + 1 < points.size(); ++i)
        line(points[i], points[i + 1], brush);
}

void Canvas::disc(const glm::vec2& middle, const Brush& brush) {
    apply(middle, middle, brush, [&](const glm::vec2& p) { return glm::distance(p, middle); });
}

void Canvas::box(const glm::vec2& middle, const glm::vec2& half, const Brush& brush) {
    const glm::vec2 inner = half - brush.width / 2;
    apply(middle - half, middle + half, brush, [&](const glm::vec2& p) {
        return glm::length(glm::max(glm::abs(p - middle) - inner, glm::vec2(0)));
    });
}

} // namespace zelvo::bake
