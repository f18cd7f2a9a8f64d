// SPDX-License-Identifier: MIT
#include "platform/geometry/ClosedSolid.h"

#include <glm/geometric.hpp>
#include <meshoptimizer.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <numeric>
#include <vector>

namespace zelvo::geometry {
namespace {

using Indices = std::vector<std::uint32_t>;

/// The same triangles; of the vertices at one position, all use the same one. Positions are compared by
/// their bytes, so -0 becomes 0.
Indices weldedIndices(const Mesh& mesh) {
    std::vector<glm::vec3> positions(mesh.vertices.size());
    std::ranges::transform(mesh.vertices, positions.begin(), [](const Vertex& vertex) {
        return vertex.position + 0.0F;
    });
    Indices welded(mesh.indices.size());
    meshopt_generateShadowIndexBuffer(
        welded.data(),
        mesh.indices.data(),
        mesh.indices.size(),
        positions.data(),
        positions.size(),
        sizeof(glm::vec3),
        sizeof(glm::vec3));
    return welded;
}

/// A number that looks random, the same for an edge in either direction (the finaliser of D. Lea's
/// and G. Steele's SplitMix, 2014).
std::uint64_t edgeNumber(std::uint32_t from, std::uint32_t to) {
    const auto [low, high] = std::minmax(from, to);
    std::uint64_t number = (std::uint64_t{low} << 32U | high) * 0x9E3779B97F4A7C15U;
    number = (number ^ (number >> 30U)) * 0xBF58476D1CE4E5B9U;
    number = (number ^ (number >> 27U)) * 0x94D049BB133111EBU;
    return number ^ (number >> 31U);
}

/// Each edge is passed as often in one direction as in the other. The numbers of the edges are
/// added in one direction and subtracted in the other: the sum is 0 then, and otherwise with a
/// chance of 2^-64. So no table of edges is needed.
bool hasNoBorder(const Indices& indices) {
    std::uint64_t sum = 0;
    for (std::size_t i = 0; i < indices.size(); ++i) {
        const std::uint32_t from = indices[i];
        const std::uint32_t to = indices[i % 3 == 2 ? i - 2 : i + 1];
        if (from != to)
            sum += from < to ? edgeNumber(from, to) : -edgeNumber(from, to);
    }
    return sum == 0;
}

/// The connected parts of a mesh, as disjoint sets of its vertices.
class Parts {
public:
    explicit Parts(std::size_t vertices)
        : parents(vertices) {
        std::iota(parents.begin(), parents.end(), 0U);
    }

    std::uint32_t partOf(std::uint32_t vertex) {
        while (parents[vertex] != vertex) {
            parents[vertex] = parents[parents[vertex]];
            vertex = parents[vertex];
        }
        return vertex;
    }

    void join(std::uint32_t one, std::uint32_t other) { parents[partOf(one)] = partOf(other); }

private:
    Indices parents;
};

bool turnsOutwards(const Mesh& mesh, const Indices& indices) {
    Parts parts(mesh.vertices.size());
    for (std::size_t i = 0; i < indices.size(); i += 3) {
        parts.join(indices[i], indices[i + 1]);
        parts.join(indices[i], indices[i + 2]);
    }
    std::vector<double> volumes(mesh.vertices.size());
    const glm::dvec3 origin(mesh.vertices.front().position); // near, so that little cancels out
    const auto place = [&](std::uint32_t vertex) {
        return glm::dvec3(mesh.vertices[vertex].position) - origin;
    };
    for (std::size_t i = 0; i < indices.size(); i += 3) {
        volumes[parts.partOf(indices[i])] +=
            glm::dot(place(indices[i]), glm::cross(place(indices[i + 1]), place(indices[i + 2])));
    }
    for (const std::uint32_t vertex : indices) {
        if (volumes[parts.partOf(vertex)] <= 0)
            return false;
    }
    return true;
}

} // namespace

bool isClosedSolid(const Mesh& mesh) {
    if (mesh.indices.empty())
        return false;
    const Indices indices = weldedIndices(mesh);
    return hasNoBorder(indices) && turnsOutwards(mesh, indices);
}

} // namespace zelvo::geometry
