// SPDX-License-Identifier: MIT
#include "platform/object/PolygonTriangulator.h"

#include "platform/geometry/Cross.h"
#include "platform/geometry/FaceTessellator.h"

#include <glm/geometric.hpp>

#include <algorithm>
#include <cmath>
#include <map>
#include <numeric>
#include <utility>

namespace zelvo::object {

using geometry::cross;

namespace {

/// Twice the area of a triangle; positive if it is counter-clockwise.
double areaOf(const glm::dvec2& a, const glm::dvec2& b, const glm::dvec2& c) {
    return cross(b - a, c - a);
}

bool isInside(const glm::dvec2& at, const glm::dvec2& a, const glm::dvec2& b, const glm::dvec2& c) {
    return areaOf(a, b, at) >= 0 && areaOf(b, c, at) >= 0 && areaOf(c, a, at) >= 0;
}

using Side = std::array<std::uint32_t, 2>;

/// The sides of a ring of corners, without those that are passed in both directions.
std::vector<Side> sidesOf(const std::vector<std::uint32_t>& ring) {
    std::map<Side, int> counts;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const Side side{ring[i], ring[(i + 1) % ring.size()]};
        const auto opposite = counts.find({side[1], side[0]});
        if (opposite != counts.end() && opposite->second > 0) {
            --opposite->second;
        } else {
            ++counts[side];
        }
    }
    std::vector<Side> sides;
    for (const auto& [side, count] : counts)
        sides.insert(sides.end(), static_cast<std::size_t>(count), side);
    return sides;
}

} // namespace

glm::dvec3 newellNormal(std::span<const glm::dvec3> corners) {
    glm::dvec3 normal(0);
    for (std::size_t i = 1; i + 1 < corners.size(); ++i)
        normal += glm::cross(corners[i] - corners[0], corners[i + 1] - corners[0]);
    return normal;
}

std::span<const PolygonTriangulator::Triangle>
PolygonTriangulator::cut(std::span<const glm::dvec3> corners) {
    triangles.clear();
    joinRepeated(corners);
    if (kept.size() < 3)
        return {};
    if (kept.size() == 3) {
        triangles.push_back({kept[0], kept[1], kept[2]});
        return triangles;
    }
    const glm::dvec3 normal = newellNormal(corners);
    if (kept.size() == 4) {
        cutQuad(corners, normal);
        return triangles;
    }
    project(corners, normal);
    if (isConvex() || !(cutEars() || cutByTessellator()))
        cutAsFan();
    for (Triangle& triangle : triangles) {
        for (std::uint32_t& corner : triangle)
            corner = kept[corner];
    }
    return triangles;
}

void PolygonTriangulator::joinRepeated(std::span<const glm::dvec3> corners) {
    kept.clear();
    for (std::uint32_t i = 0; i < corners.size(); ++i) {
        if (kept.empty() || corners[i] != corners[kept.back()])
            kept.push_back(i);
    }
    while (kept.size() > 1 && corners[kept.front()] == corners[kept.back()])
        kept.pop_back();
    const bool isLine = std::ranges::all_of(kept, [&](std::uint32_t corner) {
        return corners[corner] == corners[kept[0]] || corners[corner] == corners[kept[1]];
    });
    if (isLine)
        kept.clear();
}

void PolygonTriangulator::cutQuad(std::span<const glm::dvec3> corners, const glm::dvec3& normal) {
    const auto at = [&](int i) { return corners[kept[static_cast<std::size_t>(i)]]; };
    const auto isUpright = [&](int a, int b, int c) {
        return glm::dot(glm::cross(at(b) - at(a), at(c) - at(a)), normal) > 0;
    };
    const bool canFromFirst = isUpright(0, 1, 2) && isUpright(0, 2, 3);
    const bool canFromSecond = isUpright(0, 1, 3) && isUpright(1, 2, 3);
    const bool isSecondShorter =
        glm::distance(at(1), at(3)) < glm::distance(at(0), at(2)) * (1 - 1e-6);
    if (canFromSecond && (isSecondShorter || !canFromFirst)) {
        triangles.push_back({kept[0], kept[1], kept[3]});
        triangles.push_back({kept[1], kept[2], kept[3]});
    } else {
        triangles.push_back({kept[0], kept[1], kept[2]});
        triangles.push_back({kept[0], kept[2], kept[3]});
    }
}

/// Along the main axis that is nearest to the normal, so that no digits are lost.
void PolygonTriangulator::project(std::span<const glm::dvec3> corners, const glm::dvec3& normal) {
    const glm::dvec3 size = glm::abs(normal);
    int along = 2;
    if (size.x > size.y && size.x > size.z) {
        along = 0;
    } else if (size.y > size.z) {
        along = 1;
    }
    int across = (along + 1) % 3;
    int up = (along + 2) % 3;
    if (normal[along] < 0)
        std::swap(across, up);
    flat.clear();
    for (const std::uint32_t corner : kept)
        flat.emplace_back(corners[corner][across], corners[corner][up]);
}

void PolygonTriangulator::cutAsFan() {
    triangles.clear();
    for (std::uint32_t i = 1; i + 1 < kept.size(); ++i)
        triangles.push_back({0, i, i + 1});
}

/// It never turns right, and changes between left and right only twice: it goes round once.
bool PolygonTriangulator::isConvex() const {
    const std::size_t count = flat.size();
    int changes = 0;
    bool wasRight = flat[0].x > flat[count - 1].x;
    for (std::size_t i = 0; i < count; ++i) {
        const glm::dvec2& here = flat[i];
        const glm::dvec2& after = flat[(i + 1) % count];
        if (areaOf(flat[(i + count - 1) % count], here, after) < 0)
            return false;
        if (after.x == here.x)
            continue;
        changes += (after.x > here.x) != wasRight ? 1 : 0;
        wasRight = after.x > here.x;
    }
    return changes <= 2;
}

void PolygonTriangulator::link() {
    const auto count = static_cast<std::uint32_t>(flat.size());
    previous.resize(count);
    next.resize(count);
    for (std::uint32_t i = 0; i < count; ++i) {
        previous[i] = (i + count - 1) % count;
        next[i] = (i + 1) % count;
    }
}

double PolygonTriangulator::turnAt(std::uint32_t at) const {
    return areaOf(flat[previous[at]], flat[at], flat[next[at]]);
}

/// Whether no other corner lies in the triangle. Only a corner that turns right can. One at the same
/// place as a corner of the triangle is the other end of a bridge.
bool PolygonTriangulator::isEar(std::uint32_t at) const {
    const glm::dvec2& a = flat[previous[at]];
    const glm::dvec2& b = flat[at];
    const glm::dvec2& c = flat[next[at]];
    if (areaOf(a, b, c) <= 0)
        return false;
    for (std::uint32_t i = next[next[at]]; i != previous[at]; i = next[i]) {
        const glm::dvec2& other = flat[i];
        if (isInside(other, a, b, c) && other != a && other != b && other != c && turnAt(i) < 0)
            return false;
    }
    return true;
}

bool PolygonTriangulator::cutEars() {
    link();
    auto left = static_cast<std::uint32_t>(flat.size());
    std::uint32_t at = 0;
    std::uint32_t sinceLast = 0;
    while (left > 3) {
        if (sinceLast > left || testsLeft < left)
            return false;
        testsLeft -= left;
        if (!isEar(at)) {
            at = next[at];
            ++sinceLast;
            continue;
        }
        triangles.push_back({previous[at], at, next[at]});
        next[previous[at]] = next[at];
        previous[next[at]] = previous[at];
        at = next[next[at]]; // not the next one, which would make a fan of slivers
        sinceLast = 0;
        --left;
    }
    triangles.push_back({previous[at], at, next[at]});
    return isWhole();
}

/// Whether the triangles cover the polygon once.
bool PolygonTriangulator::isWhole() const {
    double wanted = 0;
    for (std::size_t i = 1; i + 1 < flat.size(); ++i)
        wanted += areaOf(flat[0], flat[i], flat[i + 1]);
    double covered = 0;
    for (const Triangle& triangle : triangles)
        covered += std::abs(areaOf(flat[triangle[0]], flat[triangle[1]], flat[triangle[2]]));
    constexpr double kTolerance = 1e-6;
    return std::abs(covered - wanted) <= kTolerance * std::abs(wanted);
}

/// For what has no ears: corners that touch sides, collinear bridges.
bool PolygonTriangulator::cutByTessellator() {
    const std::uint64_t cost = flat.size() * flat.size() * kTestsPerCrossing;
    if (flat.size() > kMaxTessellated || testsLeft < cost)
        return false;
    testsLeft -= cost;
    // Corners at one place get one number, and a bridge's two sides are left out.
    const auto isBefore = [this](std::uint32_t a, std::uint32_t b) {
        return std::pair(flat[a].x, flat[a].y) < std::pair(flat[b].x, flat[b].y);
    };
    std::vector<std::uint32_t> order(flat.size());
    std::iota(order.begin(), order.end(), 0U);
    std::ranges::stable_sort(order, isBefore);
    std::vector<std::uint32_t> ring(flat.size());
    for (std::size_t i = 0; i < order.size(); ++i) {
        const bool isSame = i > 0 && flat[order[i]] == flat[order[i - 1]];
        ring[order[i]] = isSame ? ring[order[i - 1]] : order[i];
    }
    const auto filled = geometry::tessellateFace(flat, sidesOf(ring));
    if (filled)
        triangles.assign(filled->begin(), filled->end());
    return filled && isWhole();
}

} // namespace zelvo::object
