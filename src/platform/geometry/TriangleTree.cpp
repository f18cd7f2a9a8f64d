// SPDX-License-Identifier: MIT
#include "platform/geometry/TriangleTree.h"

#include <glm/common.hpp>
#include <glm/geometric.hpp>

#include <algorithm>
#include <array>
#include <limits>

namespace zelvo::geometry {

namespace {

constexpr std::size_t kLeafSize = 4;
/// Each level halves the triangles, so 32 bits of them need no more.
constexpr std::size_t kMaxDepth = 34;
constexpr float kTiny = 1e-30f;
constexpr float kNever = std::numeric_limits<float>::infinity();

/// Where the ray enters the box; kNever if it misses it, or if the box begins behind `limit`.
/// Slab method, after Kay and Kajiya, "Ray Tracing Complex Scenes", 1986.
float entry(const Box& box, const Ray& ray, const glm::vec3& inverse, float limit) {
    const glm::vec3 one = (box.min - ray.origin) * inverse;
    const glm::vec3 other = (box.max - ray.origin) * inverse;
    float from = 0;
    float to = limit;
    for (int axis = 0; axis < 3; ++axis) {
        from = std::max(from, std::min(one[axis], other[axis]));
        to = std::min(to, std::max(one[axis], other[axis]));
    }
    return from <= to ? from : kNever;
}

/// 1 / direction. A ray along an axis gets a large number in place of infinity, which would give
/// NaN for a box whose side it runs in.
glm::vec3 inverseOf(const glm::vec3& direction) {
    glm::vec3 inverse{};
    for (int axis = 0; axis < 3; ++axis)
        inverse[axis] = 1 / (direction[axis] == 0 ? kTiny : direction[axis]);
    return inverse;
}

} // namespace

struct TriangleTree::Unbuilt {
    Triangle triangle;
    Box box;
    glm::vec3 middle;
};

TriangleTree::TriangleTree(const Mesh& mesh) {
    std::vector<Unbuilt> parts;
    parts.reserve(mesh.indices.size() / 3);
    for (std::size_t i = 0; i + 2 < mesh.indices.size(); i += 3) {
        const glm::vec3& a = mesh.vertices[mesh.indices[i]].position;
        const glm::vec3& b = mesh.vertices[mesh.indices[i + 1]].position;
        const glm::vec3& c = mesh.vertices[mesh.indices[i + 2]].position;
        const Box box{glm::min(a, glm::min(b, c)), glm::max(a, glm::max(b, c))};
        const auto number = static_cast<std::uint32_t>(i / 3);
        parts.push_back({{a, b - a, c - a, number}, box, (box.min + box.max) * 0.5f});
    }
    triangles.reserve(parts.size());
    if (!parts.empty())
        addBranch(parts);
}

void TriangleTree::addBranch(std::span<Unbuilt> parts) {
    const std::size_t own = branches.size();
    branches.emplace_back();
    Box middles;
    for (const Unbuilt& part : parts) {
        branches[own].box.include(part.box);
        middles.include(part.middle);
    }
    if (parts.size() <= kLeafSize) {
        addLeaf(branches[own], parts);
        return;
    }
    const glm::vec3 sides = middles.max - middles.min;
    const int wide = sides.y > sides.x ? 1 : 0;
    const int axis = sides.z > sides[wide] ? 2 : wide;
    const auto half = static_cast<std::ptrdiff_t>(parts.size() / 2);
    std::nth_element(
        parts.begin(),
        parts.begin() + half,
        parts.end(),
        [axis](const Unbuilt& a, const Unbuilt& b) { return a.middle[axis] < b.middle[axis]; });
    addBranch(parts.first(static_cast<std::size_t>(half)));
    branches[own].first = static_cast<std::uint32_t>(branches.size());
    addBranch(parts.subspan(static_cast<std::size_t>(half)));
}

void TriangleTree::addLeaf(Branch& branch, std::span<const Unbuilt> parts) {
    branch.first = static_cast<std::uint32_t>(triangles.size());
    branch.count = static_cast<std::uint32_t>(parts.size());
    for (const Unbuilt& part : parts)
        triangles.push_back(part.triangle);
}

namespace {

/// After Möller and Trumbore, "Fast, Minimum Storage Ray/Triangle Intersection", 1997.
template <class Triangle> std::optional<RayHit> meet(const Ray& ray, const Triangle& triangle) {
    const glm::vec3 across = glm::cross(ray.direction, triangle.toThird);
    const float determinant = glm::dot(triangle.toSecond, across);
    if (determinant == 0) // the ray runs along the triangle
        return std::nullopt;
    const glm::vec3 from = ray.origin - triangle.corner;
    const float second = glm::dot(from, across) / determinant;
    const glm::vec3 turned = glm::cross(from, triangle.toSecond);
    const float third = glm::dot(ray.direction, turned) / determinant;
    const float distance = glm::dot(triangle.toThird, turned) / determinant;
    if (second < 0 || third < 0 || second + third > 1 || !(distance >= 0))
        return std::nullopt;
    return RayHit{distance, triangle.number, {second, third}, determinant > 0};
}

} // namespace

std::optional<RayHit> TriangleTree::nearest(const Ray& ray, const Accepts& accepts) const {
    std::optional<RayHit> best;
    if (branches.empty())
        return best;
    const auto limit = [&best] { return best ? best->distance : kNever; };
    const glm::vec3 inverse = inverseOf(ray.direction);
    std::array<std::uint32_t, kMaxDepth> waiting{};
    std::size_t count = 1; // the root waits
    while (count > 0) {
        const std::uint32_t at = waiting.at(--count);
        const Branch& branch = branches[at];
        if (entry(branch.box, ray, inverse, limit()) == kNever)
            continue;
        for (std::uint32_t i = 0; i < branch.count; ++i) {
            const std::optional<RayHit> hit = meet(ray, triangles[branch.first + i]);
            if (hit && hit->distance < limit() && accepts(*hit))
                best = hit;
        }
        if (branch.count > 0)
            continue;
        // the nearer child first: its hit spares most of the other
        const float left = entry(branches[at + 1].box, ray, inverse, limit());
        const float right = entry(branches[branch.first].box, ray, inverse, limit());
        const bool isLeftNearer = left <= right;
        waiting.at(count++) = isLeftNearer ? branch.first : at + 1;
        waiting.at(count++) = isLeftNearer ? at + 1 : branch.first;
    }
    return best;
}

} // namespace zelvo::geometry
