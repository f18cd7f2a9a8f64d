// SPDX-License-Identifier: MIT
#include "geometry/SolidChecks.h"

#include <fmt/format.h>
#include <glm/geometric.hpp>

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <set>
#include <tuple>
#include <vector>

namespace zelvo::geometry {

namespace {

constexpr double kMinFold = 3e-4;    // scene units; smaller folds come from single precision
constexpr double kMinTexture = 1e-6; // twice the area on the picture; smaller ones are rounded

using Side = std::array<std::uint32_t, 2>;
using Triangle = std::array<std::uint32_t, 3>;

// The index, for each vertex, of the first vertex at the same place.
std::vector<std::uint32_t> weld(const Mesh& mesh) {
    std::vector<std::uint32_t> order(mesh.vertices.size());
    for (std::uint32_t i = 0; i < order.size(); ++i) {
        order[i] = i;
    }
    const auto key = [&mesh](std::uint32_t i) {
        const glm::vec3& p = mesh.vertices[i].position;
        return std::tuple(p.x, p.y, p.z);
    };
    std::sort(order.begin(), order.end(), [&key](auto a, auto b) { return key(a) < key(b); });
    std::vector<std::uint32_t> places(order.size());
    for (std::size_t i = 0; i < order.size(); ++i) {
        const bool isSame = i > 0 && key(order[i]) == key(order[i - 1]);
        places[order[i]] = isSame ? places[order[i - 1]] : order[i];
    }
    return places;
}

std::vector<Triangle> weldedTriangles(const Mesh& mesh) {
    const std::vector<std::uint32_t> places = weld(mesh);
    std::vector<Triangle> triangles;
    for (std::size_t i = 0; i + 2 < mesh.indices.size(); i += 3) {
        const Triangle t{
            places[mesh.indices[i]], places[mesh.indices[i + 1]], places[mesh.indices[i + 2]]};
        if (t[0] != t[1] && t[1] != t[2] && t[2] != t[0])
            triangles.push_back(t);
    }
    return triangles;
}

void countSides(const std::vector<Triangle>& triangles, SolidReport& report) {
    std::vector<Side> along;
    std::vector<Side> against;
    std::set<std::uint32_t> corners;
    for (const Triangle& t : triangles) {
        for (std::size_t i = 0; i < 3; ++i) {
            along.push_back({t[i], t[(i + 1) % 3]});
            against.push_back({t[(i + 1) % 3], t[i]});
            corners.insert(t[i]);
        }
    }
    std::sort(along.begin(), along.end());
    std::sort(against.begin(), against.end());
    std::vector<Side> unmatched;
    std::set_symmetric_difference(
        along.begin(), along.end(), against.begin(), against.end(), std::back_inserter(unmatched));
    report.openSides = unmatched.size();
    for (std::size_t i = 1; i < along.size(); ++i) {
        if (along[i] == along[i - 1])
            ++report.openSides;
    }
    report.euler = static_cast<long>(corners.size()) - static_cast<long>(along.size() / 2) +
                   static_cast<long>(triangles.size());
}

bool isUnit(const glm::vec3& v) {
    return std::abs(glm::length(v) - 1) < 1e-3F;
}

bool isSane(const Vertex& vertex) {
    const glm::vec3 tangent(vertex.tangent);
    const float sum =
        vertex.position.x + vertex.position.y + vertex.position.z + vertex.uv.x + vertex.uv.y;
    return std::isfinite(sum) && isUnit(vertex.normal) && isUnit(tangent) &&
           std::abs(glm::dot(tangent, vertex.normal)) < 1e-3F && std::abs(vertex.tangent.w) == 1;
}

// Seen from the front, no triangle of faces and chamfers may be reversed, because they cover the
// outline without hiding each other.
bool isFolded(const Mesh& mesh, std::size_t firstIndex) {
    const auto corner = [&](std::size_t i) -> const Vertex& {
        return mesh.vertices[mesh.indices[firstIndex + i]];
    };
    const glm::dvec3 ab = corner(1).position - corner(0).position;
    const glm::dvec3 ac = corner(2).position - corner(0).position;
    const glm::dvec3 cross = glm::cross(ab, ac);
    const glm::dvec3 normal = corner(0).normal + corner(1).normal + corner(2).normal;
    const double longest = std::max({glm::length(ab), glm::length(ac), glm::length(ab - ac)});
    if (std::abs(normal.z) > 1e-3 && cross.z * normal.z < 0)
        return std::abs(cross.z) > kMinFold * longest;
    return glm::length(cross) > 2e-3 &&
           glm::dot(cross, normal) < 0.3 * glm::length(cross) * glm::length(normal);
}

bool isTwisted(const Mesh& mesh, std::size_t firstIndex) {
    const auto corner = [&](std::size_t i) -> const Vertex& {
        return mesh.vertices[mesh.indices[firstIndex + i]];
    };
    const glm::dvec3 ab = corner(1).position - corner(0).position;
    const glm::dvec3 ac = corner(2).position - corner(0).position;
    const glm::dvec2 toB = corner(1).uv - corner(0).uv;
    const glm::dvec2 toC = corner(2).uv - corner(0).uv;
    const double area = toB.x * toC.y - toB.y * toC.x;
    if (std::abs(area) < kMinTexture)
        return false;
    const glm::dvec3 alongU = (ab * toC.y - ac * toB.y) / area;
    const glm::dvec3 alongV = (ac * toB.x - ab * toC.x) / area;
    const glm::dvec3 tangent = corner(0).tangent + corner(1).tangent + corner(2).tangent;
    const glm::dvec3 normal = corner(0).normal + corner(1).normal + corner(2).normal;
    const glm::dvec3 bitangent = glm::cross(normal, tangent) * double{corner(0).tangent.w};
    return glm::dot(alongU, tangent) <= 0 || glm::dot(alongV, bitangent) <= 0;
}

} // namespace

SolidReport inspect(const Mesh& mesh) {
    SolidReport report;
    report.triangles = mesh.indices.size() / 3;
    const auto bad = std::count_if(
        mesh.vertices.begin(), mesh.vertices.end(), [](const Vertex& v) { return !isSane(v); });
    report.badNumbers = static_cast<std::size_t>(bad);
    countSides(weldedTriangles(mesh), report);
    for (std::size_t i = 0; i + 2 < mesh.indices.size(); i += 3) {
        const glm::dvec3 a(mesh.vertices[mesh.indices[i]].position);
        const glm::dvec3 b(mesh.vertices[mesh.indices[i + 1]].position);
        const glm::dvec3 c(mesh.vertices[mesh.indices[i + 2]].position);
        report.volume += glm::dot(a, glm::cross(b, c)) / 6;
        report.folded += isFolded(mesh, i) ? 1 : 0;
        report.twisted += isTwisted(mesh, i) ? 1 : 0;
    }
    return report;
}

std::string faultOf(const Mesh& mesh) {
    const SolidReport report = inspect(mesh);
    if (report.badNumbers > 0)
        return fmt::format("{} bad vertices", report.badNumbers);
    if (report.openSides > 0)
        return fmt::format("{} open sides", report.openSides);
    if (report.folded > 0)
        return fmt::format("{} folded triangles", report.folded);
    if (report.triangles > 0 && report.volume <= 0)
        return fmt::format("a volume of {}", report.volume);
    return {};
}

} // namespace zelvo::geometry
