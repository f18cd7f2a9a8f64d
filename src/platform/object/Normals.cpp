// SPDX-License-Identifier: MIT
#include "platform/object/Normals.h"

#include "platform/object/PlaceTable.h"
#include "platform/object/PolygonTriangulator.h"

#include <glm/geometric.hpp>

#include <algorithm>
#include <bit>
#include <cmath>
#include <numeric>
#include <span>

namespace zelvo::object {

namespace {

/// Corners around one place. Beyond this many, each face there keeps its own normal, because the
/// comparison of all with all takes too long.
constexpr std::size_t kMaxAround = 256;

[[nodiscard]] glm::vec3 normalizedOrZero(const glm::dvec3& vector) {
    const double length = glm::length(vector);
    return length > 0 && std::isfinite(length) ? glm::vec3(vector / length) : glm::vec3(0);
}

/// For each point the first one at the same place.
[[nodiscard]] std::vector<std::uint32_t> placesOf(const std::vector<glm::dvec3>& points) {
    const auto hashOf = [&](std::uint32_t point) {
        std::uint64_t hash = 0;
        for (int i = 0; i < 3; ++i)
            hash = mixed(hash, std::bit_cast<std::uint64_t>(points[point][i] + 0.0)); // -0 is 0
        return hash;
    };
    PlaceTable table(points.size());
    std::vector<std::uint32_t> places(points.size());
    for (std::uint32_t i = 0; i < points.size(); ++i) {
        places[i] = table.find(
            hashOf(i), i, [&](std::uint32_t other) { return points[other] == points[i]; }, hashOf);
    }
    return places;
}

class NormalMaker {
public:
    NormalMaker(Polygons& given, double creaseAngle)
        : polygons(given)
        , minCosine(static_cast<float>(std::cos(creaseAngle))) {
        measureFaces();
        sortByPlace();
    }

    void run() {
        for (std::size_t place = 0; place + 1 < starts.size(); ++place) {
            const std::span around(
                sorted.begin() + starts[place], sorted.begin() + starts[place + 1]);
            if (std::ranges::any_of(around, [this](const Around& here) { return isBare(here); }))
                completePlace(around);
        }
    }

private:
    /// A corner at a place.
    struct Around {
        std::uint32_t corner;
        std::uint32_t face;
    };

    [[nodiscard]] bool isBare(const Around& here) const {
        return polygons.corners[here.corner].normal == Polygons::kNone;
    }

    void measureFaces() {
        std::vector<glm::dvec3> outline;
        faceNormals.reserve(polygons.faces.size());
        faceStarts.reserve(polygons.faces.size());
        std::uint32_t first = 0;
        for (const Polygons::Face& face : polygons.faces) {
            faceStarts.push_back(first);
            outline.clear();
            for (std::size_t i = first; i < first + face.cornerCount; ++i)
                outline.push_back(polygons.points[polygons.corners[i].point]);
            faceNormals.push_back(normalizedOrZero(newellNormal(outline)));
            first += face.cornerCount;
        }
    }

    /// Lists the corners by their place.
    void sortByPlace() {
        const std::vector<std::uint32_t> places = placesOf(polygons.points);
        starts.assign(polygons.points.size() + 1, 0);
        for (const Polygons::Corner& corner : polygons.corners)
            ++starts[places[corner.point] + 1];
        std::partial_sum(starts.begin(), starts.end(), starts.begin());
        sorted.resize(polygons.corners.size());
        std::vector<std::uint32_t> free(starts.begin(), starts.end() - 1);
        for (std::uint32_t face = 0; face < polygons.faces.size(); ++face) {
            const std::uint32_t first = faceStarts[face];
            for (std::uint32_t i = first; i < first + polygons.faces[face].cornerCount; ++i)
                sorted[free[places[polygons.corners[i].point]]++] = {i, face};
        }
    }

    /// Of the face at this corner.
    [[nodiscard]] float angleAt(const Around& here) const {
        const std::uint32_t first = faceStarts[here.face];
        const std::uint32_t count = polygons.faces[here.face].cornerCount;
        const std::uint32_t at = here.corner - first;
        const auto point = [&](std::uint32_t i) {
            return polygons.points[polygons.corners[first + i % count].point];
        };
        const glm::vec3 to = normalizedOrZero(point(at + 1) - point(at));
        const glm::vec3 from = normalizedOrZero(point(at + count - 1) - point(at));
        return std::acos(std::clamp(glm::dot(to, from), -1.0F, 1.0F));
    }

    void completePlace(std::span<const Around> around) {
        const std::size_t firstNew = polygons.normals.size();
        const bool isCrowded = around.size() > kMaxAround;
        angles.clear();
        for (std::size_t i = 0; !isCrowded && i < around.size(); ++i)
            angles.push_back(angleAt(around[i]));
        for (const Around& here : around) {
            if (!isBare(here))
                continue;
            const glm::vec3 normal = isCrowded ? faceNormals[here.face] : meanFor(here, around);
            polygons.corners[here.corner].normal = entered(normal, isCrowded, firstNew);
        }
    }

    [[nodiscard]] glm::vec3 meanFor(const Around& here, std::span<const Around> around) const {
        const glm::vec3 own = faceNormals[here.face];
        const std::uint32_t smoothing = polygons.faces[here.face].smoothing;
        const bool hasOwn = own != glm::vec3(0);
        if (smoothing == Polygons::kFlat && hasOwn)
            return own;
        glm::vec3 sum(0);
        for (std::size_t i = 0; i < around.size(); ++i) {
            const Around& other = around[i];
            const glm::vec3& normal = faceNormals[other.face];
            const bool belongs = smoothing == Polygons::kByAngle
                                     ? !hasOwn || glm::dot(own, normal) >= minCosine
                                     : polygons.faces[other.face].smoothing == smoothing;
            if (belongs)
                sum += normal * angles[i];
        }
        const glm::vec3 mean = normalizedOrZero(sum);
        return mean != glm::vec3(0) ? mean : own;
    }

    /// The number of this normal among those made for the place.
    [[nodiscard]] std::uint32_t
    entered(const glm::vec3& normal, bool isCrowded, std::size_t firstNew) {
        constexpr float kSame = 1e-6F;
        std::size_t at = isCrowded ? polygons.normals.size() : firstNew;
        while (at < polygons.normals.size() && glm::distance(polygons.normals[at], normal) > kSame)
            ++at;
        if (at == polygons.normals.size())
            polygons.normals.push_back(normal == glm::vec3(0) ? glm::vec3(0, 1, 0) : normal);
        return static_cast<std::uint32_t>(at);
    }

    Polygons& polygons;
    float minCosine;
    std::vector<glm::vec3> faceNormals;
    std::vector<std::uint32_t> faceStarts; ///< the first corner of each face
    std::vector<float> angles;             ///< of the faces around the place in hand
    std::vector<std::uint32_t> starts;     ///< of each place in `sorted`, and the end
    std::vector<Around> sorted;
};

/// The same in float, which is enough for all but very large and very small vectors.
[[nodiscard]] glm::vec3 quicklyNormalized(const glm::vec3& vector) {
    constexpr float kSmall = 1e-30F;
    constexpr float kLarge = 1e30F;
    const float square = glm::dot(vector, vector);
    return square > kSmall && square < kLarge ? vector / std::sqrt(square)
                                              : normalizedOrZero(vector);
}

} // namespace

void completeNormals(Polygons& polygons, double creaseAngle) {
    std::vector<bool> isZero(polygons.normals.size());
    for (std::size_t i = 0; i < isZero.size(); ++i) {
        polygons.normals[i] = normalizedOrZero(polygons.normals[i]);
        isZero[i] = polygons.normals[i] == glm::vec3(0);
    }
    bool isComplete = true;
    for (Polygons::Corner& corner : polygons.corners) {
        if (corner.normal != Polygons::kNone && isZero[corner.normal])
            corner.normal = Polygons::kNone;
        isComplete = isComplete && corner.normal != Polygons::kNone;
    }
    if (!isComplete)
        NormalMaker(polygons, creaseAngle).run();
}

bool isPictureMirrored(const glm::vec2& a, const glm::vec2& b, const glm::vec2& c) {
    const glm::vec2 first = b - a;
    const glm::vec2 second = c - a;
    return first.x * second.y - first.y * second.x < 0;
}

void addTangents(geometry::Mesh& mesh) {
    std::vector<glm::vec3> sums(mesh.vertices.size(), glm::vec3(0));
    for (geometry::Vertex& vertex : mesh.vertices)
        vertex.tangent.w = 1;
    for (std::size_t i = 0; i + 2 < mesh.indices.size(); i += 3) {
        const std::array corners{mesh.indices[i], mesh.indices[i + 1], mesh.indices[i + 2]};
        geometry::Vertex& a = mesh.vertices[corners[0]];
        geometry::Vertex& b = mesh.vertices[corners[1]];
        geometry::Vertex& c = mesh.vertices[corners[2]];
        // The direction in which u grows, whatever the size of the triangle on the picture.
        const glm::vec3 along = quicklyNormalized(
            (b.position - a.position) * (c.uv.y - a.uv.y) -
            (c.position - a.position) * (b.uv.y - a.uv.y));
        const bool isMirrored = isPictureMirrored(a.uv, b.uv, c.uv);
        for (const std::uint32_t corner : corners) {
            sums[corner] += isMirrored ? -along : along;
            if (isMirrored)
                mesh.vertices[corner].tangent.w = -1;
        }
    }
    for (std::size_t i = 0; i < sums.size(); ++i) {
        const glm::vec3 normal = mesh.vertices[i].normal;
        glm::vec3 tangent = quicklyNormalized(sums[i] - normal * glm::dot(normal, sums[i]));
        if (tangent == glm::vec3(0)) {
            const glm::vec3 other =
                std::abs(normal.x) < 0.7F ? glm::vec3(1, 0, 0) : glm::vec3(0, 1, 0);
            tangent = glm::normalize(other - normal * glm::dot(normal, other));
        }
        mesh.vertices[i].tangent = glm::vec4(tangent, mesh.vertices[i].tangent.w);
    }
}

} // namespace zelvo::object
