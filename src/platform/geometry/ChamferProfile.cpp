// SPDX-License-Identifier: MIT
#include "platform/geometry/ChamferProfile.h"

#include "platform/geometry/Flatten.h"

#include <glm/geometric.hpp>

#include <algorithm>
#include <cmath>
#include <utility>

namespace zelvo::geometry {

namespace {

// scene units; largest distance between the profile and its bands
constexpr double kProfileError = 0.08;
constexpr double kMinBand = 0.01; // share of the width; narrower bands are left out

BezierPath straightProfile() {
    BezierPath path;
    path.moveTo({0, 1});
    path.lineTo({1, 0});
    return path;
}

// From the edge of the wall (1, 0) to the edge of the face (0, 1). x never turns back.
FlatContour climb(const BezierPath& path, double flatness) {
    FlatContour contour = flattenOpen(path, flatness);
    if (contour.size() < 2)
        contour = flattenOpen(straightProfile(), flatness);
    std::reverse(contour.begin(), contour.end());
    for (FlatVertex& vertex : contour) {
        std::swap(vertex.directionIn, vertex.directionOut);
        vertex.directionIn = -vertex.directionIn;
        vertex.directionOut = -vertex.directionOut;
    }
    FlatContour kept{contour.front()};
    kept.front().position = {1, 0};
    for (std::size_t i = 1; i + 1 < contour.size(); ++i) {
        const double x = contour[i].position.x;
        if (x < kept.back().position.x - kMinBand && x > kMinBand)
            kept.push_back(contour[i]);
    }
    kept.push_back(contour.back());
    kept.back().position = {0, 1};
    return kept;
}

} // namespace

ChamferProfile::ChamferProfile()
    : levels(1) {}

ChamferProfile::ChamferProfile(const BezierPath& path, double width, double height) {
    // The normal of a direction in the unit square after stretching it to width and height.
    const auto normalOf = [width, height](glm::dvec2 direction) {
        const glm::dvec2 normal =
            glm::normalize(glm::dvec2(direction.y * height, -direction.x * width));
        return Direction{.outward = normal.x, .up = normal.y};
    };
    const double flatness = std::clamp(kProfileError / std::max(width, height), 1e-3, 0.1);
    for (const FlatVertex& vertex : climb(path, flatness)) {
        Level level;
        level.distance = (1 - vertex.position.x) * width;
        level.height = vertex.position.y * height;
        if (!levels.empty()) {
            level.below = normalOf(vertex.directionIn);
            level.arc = levels.back().arc + std::hypot(
                                                level.distance - levels.back().distance,
                                                level.height - levels.back().height);
        }
        if (vertex.directionOut != glm::dvec2(0))
            level.above = normalOf(vertex.directionOut);
        levels.push_back(level);
    }
}

bool ChamferProfile::staysBelowFace() const {
    return std::ranges::all_of(
        levels, [this](const Level& level) { return level.height <= height(); });
}

bool ChamferProfile::isConvex() const {
    constexpr double kRounding = 1e-6;
    double steepest = INFINITY;
    for (std::size_t i = 1; i < levels.size(); ++i) {
        const double slope = (levels[i].height - levels[i - 1].height) /
                             (levels[i].distance - levels[i - 1].distance);
        if (slope > steepest + kRounding)
            return false;
        steepest = slope;
    }
    return staysBelowFace();
}

ChamferProfile::Surface ChamferProfile::surfaceAt(std::size_t band, double distance) const {
    const Level& low = levels[band];
    if (band + 1 >= levels.size())
        return {.height = low.height, .arc = low.arc};
    const Level& high = levels[band + 1];
    const double t =
        std::clamp((distance - low.distance) / (high.distance - low.distance), 0.0, 1.0);
    const double outward = std::lerp(low.above.outward, high.below.outward, t);
    const double up = std::lerp(low.above.up, high.below.up, t);
    const double length = std::hypot(outward, up);
    return {
        .height = std::lerp(low.height, high.height, t),
        .outward = outward / length,
        .up = up / length,
        .arc = std::lerp(low.arc, high.arc, t)};
}

} // namespace zelvo::geometry
