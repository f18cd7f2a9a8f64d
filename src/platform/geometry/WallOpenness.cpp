// SPDX-License-Identifier: MIT
#include "platform/geometry/WallOpenness.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace zelvo::geometry {
namespace {

constexpr double kPi = std::numbers::pi;
constexpr float kNearest = 0.05F; ///< scene units; what is nearer is the wall itself
/// At a real corner the light is taken a little beside it. In the corner itself all is dark.
constexpr double kBesideCorner = 0.12; ///< of the piece
constexpr double kMostBeside = 2;      ///< scene units

constexpr float kLeast = 0.12F; ///< walls also light each other

/// The angle of a ray to the wall's normal.
double angleOf(std::size_t ray, std::size_t rays) {
    return kPi * ((static_cast<double>(ray) + 0.5) / static_cast<double>(rays) - 0.5);
}

/// The share of the light from above in one direction that a wall hides, for its height over its
/// distance. It is the integral of cos^2 from the horizon to the wall's upper edge.
float hiddenShare(float slope) {
    constexpr auto kScale = static_cast<float>(2 / kPi);
    return kScale * (std::atan(slope) + slope / (1 + slope * slope));
}

constexpr std::size_t kSteps = 64;

/// hiddenShare by slope / (1 + slope), from 0 to 1.
const std::array<float, kSteps + 2>& hiddenShares() {
    static const auto kTable = [] {
        std::array<float, kSteps + 2> table{};
        for (std::size_t i = 0; i < kSteps; ++i) {
            const float share = static_cast<float>(i) / kSteps;
            table.at(i) = hiddenShare(share / (1 - share));
        }
        table.at(kSteps) = table.at(kSteps + 1) = 1;
        return table;
    }();
    return kTable;
}

/// By how much of the light comes from there.
std::array<float, WallOpenness::kRays> makeWeights() {
    std::array<float, WallOpenness::kRays> weights{};
    float sum = 0;
    for (std::size_t ray = 0; ray < weights.size(); ++ray) {
        weights.at(ray) = static_cast<float>(std::cos(angleOf(ray, weights.size())));
        sum += weights.at(ray);
    }
    for (float& weight : weights)
        weight /= sum;
    return weights;
}

} // namespace

WallOpenness::WallOpenness(const Outline& outline)
    : startViews(outline.corners.size())
    , endViews(outline.corners.size()) {
    const std::size_t step = outline.corners.size() / kMaxViews + 1;
    const auto look = [&](std::uint32_t corner, End end) {
        views.push_back(viewFrom(outline, placeOf(outline, corner, end)));
        return static_cast<std::uint32_t>(views.size() - 1);
    };
    for (const Outline::Loop& loop : outline.loops) {
        for (std::uint32_t i = 0; i < loop.count; ++i) {
            const std::uint32_t corner = loop.first + i;
            const bool looks = i % step == 0;
            const std::uint32_t known = looks ? 0 : startViews[corner - 1];
            startViews[corner] = looks ? look(corner, End::start) : known;
            // The walls on both sides of a smooth joint share a view.
            const std::uint32_t previous = outline.corners[corner].previous;
            endViews[previous] = looks && !outline.corners[corner].isSmooth
                                     ? look(previous, End::end)
                                     : startViews[corner];
        }
    }
}

WallOpenness::Place WallOpenness::placeOf(const Outline& outline, std::uint32_t corner, End end) {
    const OutlineCorner& start = outline.corners[corner];
    const OutlineCorner& here = end == End::start ? start : outline.corners[start.next];
    const double beside = here.isSmooth ? 0 : std::min(kBesideCorner * start.length, kMostBeside);
    return {
        here.position + start.direction * (end == End::start ? beside : -beside),
        here.isSmooth ? here.normal : outwardNormal(start)};
}

WallOpenness::Rays WallOpenness::raysFrom(const glm::dvec2& normal) {
    Rays rays{};
    for (std::size_t ray = 0; ray < kRays; ++ray) {
        const double cosine = std::cos(angleOf(ray, kRays));
        const double sine = std::sin(angleOf(ray, kRays));
        rays.x.at(ray) = static_cast<float>(normal.x * cosine - normal.y * sine);
        rays.y.at(ray) = static_cast<float>(normal.x * sine + normal.y * cosine);
    }
    return rays;
}

void WallOpenness::meet(const Rays& rays, const glm::vec2& a, const glm::vec2& b, View& view) {
    const float perArea = 1 / (a.x * b.y - a.y * b.x);
    // Without branches, so that several rays are computed at once.
    for (std::size_t ray = 0; ray < kRays; ++ray) {
        const float besideA = rays.x[ray] * a.y - rays.y[ray] * a.x;
        const float besideB = rays.x[ray] * b.y - rays.y[ray] * b.x;
        const float found = (besideB - besideA) * perArea;
        const float met = besideA * besideB <= 0 ? found : 0;
        view[ray] = std::max(view[ray], met < 1 / kNearest ? met : 0);
    }
}

WallOpenness::View WallOpenness::viewFrom(const Outline& outline, const Place& place) {
    const Rays rays = raysFrom(place.normal);
    View view{};
    for (const OutlineCorner& corner : outline.corners) {
        meet(
            rays,
            glm::vec2(corner.position - place.position),
            glm::vec2(outline.corners[corner.next].position - place.position),
            view);
    }
    return view;
}

float WallOpenness::at(std::uint32_t corner, End end, double height) const {
    static const auto kWeights = makeWeights();
    const auto& table = hiddenShares();
    const View& view = views[(end == End::start ? startViews : endViews)[corner]];
    float open = 1;
    for (std::size_t ray = 0; ray < kRays; ++ray) {
        const float slope = static_cast<float>(height) * view[ray];
        const float place = kSteps * slope / (1 + slope);
        const auto step = static_cast<std::size_t>(place);
        const float part = place - static_cast<float>(step);
        open -= kWeights[ray] * (table[step] + part * (table[step + 1] - table[step]));
    }
    return std::max(open, kLeast);
}

} // namespace zelvo::geometry
