// SPDX-License-Identifier: MIT
#include "platform/geometry/MeshEdges.h"

#include <glm/geometric.hpp>

#include <algorithm>
#include <array>
#include <cstdint>
#include <functional>
#include <limits>
#include <span>
#include <tuple>
#include <unordered_map>
#include <utility>

namespace zelvo::geometry {
namespace {

// Cosines of the angle between the normals of two faces.
constexpr float kBend = 0.94F;      ///< 20 degrees: a smaller angle looks like one round surface
constexpr float kElements = 0.999F; ///< 2.5 degrees: of two elements, which shine differently
constexpr float kFlat = 0.99999F;

/// One side of a triangle.
struct Side {
    std::uint32_t low = 0; ///< its ends, the smaller index first
    std::uint32_t high = 0;
    std::uint32_t triangle = 0; ///< its number: keeps the order fixed
    std::uint32_t element = 0;
    glm::vec3 normal{};

    [[nodiscard]] bool isBeside(const Side& other) const {
        return low == other.low && high == other.high;
    }
};

struct PositionHash {
    std::size_t operator()(const glm::vec3& place) const {
        const std::hash<float> hash;
        return (hash(place.x) * 31 + hash(place.y)) * 31 + hash(place.z);
    }
};

/// For each vertex, the first one at its position.
std::vector<std::uint32_t> weldedVertices(const Mesh& mesh) {
    std::unordered_map<glm::vec3, std::uint32_t, PositionHash> first(mesh.vertices.size());
    std::vector<std::uint32_t> result;
    result.reserve(mesh.vertices.size());
    for (const Vertex& vertex : mesh.vertices) {
        const auto index = static_cast<std::uint32_t>(result.size());
        result.push_back(first.try_emplace(vertex.position, index).first->second);
    }
    return result;
}

class Sides {
public:
    explicit Sides(const Mesh& of)
        : mesh(of)
        , welded(weldedVertices(of)) {}

    void add(std::span<const std::uint32_t> indices, std::uint32_t element) {
        for (std::size_t i = 0; i + 2 < indices.size(); i += 3) {
            const std::array<std::uint32_t, 3> corners{
                welded[indices[i]], welded[indices[i + 1]], welded[indices[i + 2]]};
            const glm::vec3 normal = glm::cross(
                place(corners[1]) - place(corners[0]), place(corners[2]) - place(corners[0]));
            for (std::size_t k = 0; k < 3; ++k) {
                const auto [low, high] = std::minmax({corners.at(k), corners.at((k + 1) % 3)});
                if (low != high)
                    sides.push_back({low, high, triangles, element, normal});
            }
            ++triangles;
        }
    }

    /// Those of one edge stand side by side.
    [[nodiscard]] std::vector<Side> sorted() {
        std::ranges::sort(sides, {}, [](const Side& side) {
            return std::tuple(side.low, side.high, side.triangle);
        });
        return std::move(sides);
    }

private:
    [[nodiscard]] const glm::vec3& place(std::uint32_t vertex) const {
        return mesh.vertices[vertex].position;
    }

    const Mesh& mesh;
    std::vector<std::uint32_t> welded;
    std::vector<Side> sides;
    std::uint32_t triangles = 0;
};

std::vector<Side> sidesOf(const Mesh& mesh, std::size_t level) {
    Sides sides(mesh);
    if (level > 0) {
        sides.add(mesh.coarser[level - 1].indices, 0);
        return sides.sorted();
    }
    const std::span<const std::uint32_t> indices(mesh.indices);
    for (std::uint32_t i = 0; i < mesh.elements.size(); ++i) {
        sides.add(indices.subspan(mesh.elements[i].firstIndex, mesh.elements[i].indexCount), i);
    }
    return sides.sorted();
}

float cosineBetween(const Side& one, const Side& other) {
    const float lengths = glm::length(one.normal) * glm::length(other.normal);
    return glm::dot(one.normal, other.normal) /
           std::max(lengths, std::numeric_limits<float>::min());
}

} // namespace

std::vector<MeshEdge> meshEdges(const Mesh& mesh, std::size_t level) {
    const std::vector<Side> sides = sidesOf(mesh, level);
    std::vector<MeshEdge> edges;
    for (std::size_t i = 0; i < sides.size(); ++i) {
        const Side& one = sides[i];
        MeshEdge edge{
            mesh.vertices[one.low].position,
            mesh.vertices[one.high].position,
            one.normal,
            -one.normal,
            true};
        if (i + 1 < sides.size() && sides[i + 1].isBeside(one)) {
            const Side& other = sides[++i];
            const float cosine = cosineBetween(one, other);
            if (cosine > kFlat)
                continue;
            edge.otherNormal = other.normal;
            edge.isCrease = cosine < (one.element == other.element ? kBend : kElements);
        }
        edges.push_back(edge);
    }
    return edges;
}

bool isSeenFrom(const MeshEdge& edge, const glm::vec3& place) {
    const glm::vec3 towards = place - edge.from;
    const bool isTurnedHere = glm::dot(edge.normal, towards) > 0;
    const bool isOtherTurnedHere = glm::dot(edge.otherNormal, towards) > 0;
    return isTurnedHere != isOtherTurnedHere || (edge.isCrease && isTurnedHere);
}

} // namespace zelvo::geometry
