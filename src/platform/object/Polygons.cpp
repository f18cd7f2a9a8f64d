// SPDX-License-Identifier: MIT
#include "platform/object/Polygons.h"

#include "platform/foundation/Check.h"
#include "platform/object/Normals.h"
#include "platform/object/PlaceTable.h"
#include "platform/object/PolygonTriangulator.h"

#include <glm/ext/matrix_transform.hpp>
#include <glm/geometric.hpp>

#include <algorithm>
#include <limits>
#include <span>
#include <utility>

namespace zelvo::object {

using foundation::Result;

namespace {

using Corner = Polygons::Corner;

/// Triangles that stand together in the list and have one material.
struct Run {
    std::uint32_t material;
    std::size_t firstTriangle;
    std::size_t count;
};

struct Triangles {
    std::vector<Corner> corners;
    std::vector<glm::u8vec4> colors; ///< of the corners, or none
    std::vector<Run> runs;

    void addToRuns(std::uint32_t material, std::size_t first, std::size_t count) {
        if (runs.empty() || runs.back().material != material)
            runs.push_back({material, first, 0});
        runs.back().count += count;
    }
};

/// Cuts the faces and writes their corners one after the other. Where all faces are triangles, the
/// corners stay in the memory of the polygons.
class FaceCutter {
public:
    explicit FaceCutter(Polygons& given)
        : polygons(given) {
        std::size_t bound = 0;
        bool isInPlace = true;
        for (const Polygons::Face& face : polygons.faces) {
            bound += (face.cornerCount - 2) * std::size_t{3};
            isInPlace = isInPlace && face.cornerCount == 3;
        }
        wide.resize(isInPlace ? 0 : bound);
        wideColors.resize(isInPlace || polygons.cornerColors.empty() ? 0 : bound);
        corners = isInPlace ? &polygons.corners : &wide;
        colors = isInPlace ? &polygons.cornerColors : &wideColors;
    }

    [[nodiscard]] Triangles run() {
        std::size_t first = 0;
        for (const Polygons::Face& face : polygons.faces) {
            cut(face, first);
            first += face.cornerCount;
        }
        corners->resize(used);
        colors->resize(colors->empty() ? 0 : used);
        result.corners = std::move(*corners);
        result.colors = std::move(*colors);
        return std::move(result);
    }

private:
    void cut(const Polygons::Face& face, std::size_t first) {
        if (face.cornerCount == 3) {
            takeTriangle(face, first);
            return;
        }
        outline.clear();
        for (std::size_t i = first; i < first + face.cornerCount; ++i)
            outline.push_back(polygons.points[polygons.corners[i].point]);
        const auto triangles = cutter.cut(outline);
        result.addToRuns(face.material, used / 3, triangles.size());
        for (const auto& triangle : triangles) {
            for (const std::uint32_t corner : triangle)
                add(first + corner);
        }
    }

    /// There is nothing to cut; it must only have three different places.
    void takeTriangle(const Polygons::Face& face, std::size_t first) {
        const auto place = [&](std::size_t i) -> const glm::dvec3& {
            return polygons.points[polygons.corners[first + i].point];
        };
        if (place(0) == place(1) || place(1) == place(2) || place(2) == place(0))
            return;
        result.addToRuns(face.material, used / 3, 1);
        for (std::size_t i = 0; i < 3; ++i)
            add(first + i);
    }

    void add(std::size_t corner) {
        (*corners)[used] = polygons.corners[corner];
        if (!colors->empty())
            (*colors)[used] = polygons.cornerColors[corner];
        ++used;
    }

    Polygons& polygons;
    Triangles result;
    PolygonTriangulator cutter;
    std::vector<glm::dvec3> outline;
    std::vector<Corner> wide;
    std::vector<glm::u8vec4> wideColors;
    std::vector<Corner>* corners = nullptr; ///< where the result is written
    std::vector<glm::u8vec4>* colors = nullptr;
    std::size_t used = 0;
};

/// The first vertex at each point, of the piece in hand; kNone where there is none yet.
using FirstVertices = std::vector<std::uint32_t>;

/// Makes one piece. Equal corners become one vertex. The vertices at a point are found through a
/// chain, because points that follow each other are near in memory, and hashes are not. A file can
/// have any number of vertices at one point, so a long chain goes on as a hash table.
class PieceMaker {
public:
    /// `first` has an entry for each point, all kNone, and is left so by take().
    PieceMaker(const Polygons& source, const Triangles& given, FirstVertices& first)
        : polygons(source)
        , triangles(given)
        , firstAt(first) {}

    void add(const Run& run) {
        for (std::size_t i = run.firstTriangle; i < run.firstTriangle + run.count; ++i) {
            const std::uint32_t mirrored = isMirrored(i * 3) ? kMirrored : 0;
            for (std::size_t corner = i * 3; corner < i * 3 + 3; ++corner)
                indices.push_back(vertexOf(keyOf(corner, mirrored)));
        }
    }

    void reserve(std::size_t triangleCount) { indices.reserve(triangleCount * 3); }

    [[nodiscard]] Piece take(const glm::dvec3& origin) {
        Piece piece;
        table = PlaceTable();
        following = {};
        for (const Key& key : keys)
            firstAt[key.pointOnly()] = Polygons::kNone;
        piece.mesh.vertices.reserve(keys.size());
        const bool hasColors = !polygons.pointColors.empty() || !triangles.colors.empty();
        piece.colors.reserve(hasColors ? keys.size() : 0);
        for (const Key& key : keys) {
            geometry::Vertex vertex;
            vertex.position = glm::vec3(polygons.points[key.pointOnly()] - origin);
            vertex.normal = polygons.normals[key.normal];
            if (key.uv != Polygons::kNone)
                vertex.uv = polygons.uvs[key.uv];
            piece.mesh.vertices.push_back(vertex);
            if (hasColors)
                piece.colors.push_back(key.color);
        }
        piece.mesh.elements = {{0, static_cast<std::uint32_t>(indices.size())}};
        piece.mesh.indices = std::move(indices);
        addTangents(piece.mesh);
        return piece;
    }

private:
    static constexpr std::uint32_t kMirrored = 1U << 31U;
    static_assert(Limits::kMaxPoints < kMirrored);

    /// What tells vertices apart.
    struct Key {
        std::uint32_t point; ///< and kMirrored
        std::uint32_t uv;
        std::uint32_t normal;
        glm::u8vec4 color;

        bool operator==(const Key&) const = default;

        [[nodiscard]] std::uint32_t pointOnly() const { return point & ~kMirrored; }

        [[nodiscard]] std::uint64_t hash() const {
            return mixed(point + 1ULL, std::uint64_t{uv} << 32U | normal);
        }
    };

    [[nodiscard]] Key keyOf(std::size_t at, std::uint32_t mirrored) const {
        const Corner& corner = triangles.corners[at];
        glm::u8vec4 color(255);
        if (!triangles.colors.empty()) {
            color = triangles.colors[at];
        } else if (!polygons.pointColors.empty()) {
            color = polygons.pointColors[corner.point];
        }
        return {corner.point | mirrored, corner.uv, corner.normal, color};
    }

    [[nodiscard]] bool isMirrored(std::size_t first) const {
        const auto uv = [&](std::size_t i) {
            const std::uint32_t index = triangles.corners[first + i].uv;
            return index == Polygons::kNone ? glm::vec2(0) : polygons.uvs[index];
        };
        return isPictureMirrored(uv(0), uv(1), uv(2));
    }

    [[nodiscard]] std::uint32_t vertexOf(const Key& key) {
        constexpr int kMaxChain = 32;
        std::uint32_t* link = &firstAt[key.pointOnly()];
        for (int length = 0; *link != Polygons::kNone; ++length) {
            if (keys[*link] == key)
                return *link;
            if (length == kMaxChain)
                return vertexOfCrowd(key);
            link = &following[*link];
        }
        *link = static_cast<std::uint32_t>(keys.size());
        following.push_back(Polygons::kNone); // ends the life of `link`
        keys.push_back(key);
        return static_cast<std::uint32_t>(keys.size() - 1);
    }

    [[nodiscard]] std::uint32_t vertexOfCrowd(const Key& key) {
        const auto added = static_cast<std::uint32_t>(keys.size());
        const std::uint32_t found = table.find(
            key.hash(),
            added,
            [&](std::uint32_t other) { return keys[other] == key; },
            [&](std::uint32_t other) { return keys[other].hash(); });
        if (found == added) {
            following.push_back(Polygons::kNone);
            keys.push_back(key);
        }
        return found;
    }

    const Polygons& polygons;
    const Triangles& triangles;
    FirstVertices& firstAt;
    std::vector<std::uint32_t> following; ///< by vertex: the next one at the same point
    PlaceTable table;                     ///< of the vertices beyond the chains
    std::vector<Key> keys;
    std::vector<std::uint32_t> indices;
};

/// Where the pieces get their zero. The points' own zero, so that they stay as written, if they are
/// not so far from it that float would lose their detail.
[[nodiscard]] glm::dvec3 originFor(const std::vector<glm::dvec3>& points) {
    glm::dvec3 min(std::numeric_limits<double>::max());
    glm::dvec3 max(std::numeric_limits<double>::lowest());
    for (const glm::dvec3& point : points) {
        min = glm::min(min, point);
        max = glm::max(max, point);
    }
    constexpr double kFar = 10; // times the size
    if (points.empty() || glm::length(min + max) <= 2 * kFar * glm::length(max - min))
        return glm::dvec3(0);
    return (min + max) / 2.0;
}

void checkShape(const Polygons& polygons) {
    std::size_t corners = 0;
    for (const Polygons::Face& face : polygons.faces)
        corners += face.cornerCount;
    CHECK(corners == polygons.corners.size(), "faces have {} corners in all", corners);
    const auto fits = [](std::size_t colors, std::size_t wanted) {
        return colors == 0 || colors == wanted;
    };
    CHECK(
        fits(polygons.pointColors.size(), polygons.points.size()) &&
            fits(polygons.cornerColors.size(), corners),
        "{} colours of points, {} of corners",
        polygons.pointColors.size(),
        polygons.cornerColors.size());
}

} // namespace

void dropBrokenFaces(Polygons& polygons) {
    checkShape(polygons);
    std::size_t first = 0;
    std::size_t keptCorners = 0;
    std::size_t keptFaces = 0;
    const auto limit = [](std::uint32_t& index, std::size_t size) {
        if (index >= size)
            index = Polygons::kNone;
    };
    for (const Polygons::Face face : polygons.faces) {
        const auto corners = std::span(polygons.corners).subspan(first, face.cornerCount);
        const bool isWhole = corners.size() >= 3 && std::ranges::all_of(corners, [&](Corner here) {
                                 return here.point < polygons.points.size();
                             });
        for (std::size_t i = 0; isWhole && i < corners.size(); ++i) {
            Corner corner = corners[i];
            limit(corner.uv, polygons.uvs.size());
            limit(corner.normal, polygons.normals.size());
            if (!polygons.cornerColors.empty())
                polygons.cornerColors[keptCorners] = polygons.cornerColors[first + i];
            polygons.corners[keptCorners++] = corner;
        }
        if (isWhole)
            polygons.faces[keptFaces++] = face;
        first += face.cornerCount;
    }
    polygons.corners.resize(keptCorners);
    polygons.faces.resize(keptFaces);
    if (!polygons.cornerColors.empty())
        polygons.cornerColors.resize(keptCorners);
}

Result<AddedPieces>
addPieces(ObjectScene& scene, Polygons polygons, const PieceOptions& options, const Watch& watch) {
    dropBrokenFaces(polygons);
    AddedPieces added{scene.pieces.size(), 0, originFor(polygons.points)};
    if (watch.stop.stop_requested())
        return tl::unexpected(cancelledError());
    completeNormals(polygons, options.creaseAngle);
    if (watch.stop.stop_requested())
        return tl::unexpected(cancelledError());
    Triangles triangles = FaceCutter(polygons).run();
    polygons.faces = {};

    FirstVertices firstVertices(polygons.points.size(), Polygons::kNone);
    // One piece for each material, in the order of the materials.
    std::ranges::stable_sort(triangles.runs, {}, &Run::material);
    for (auto run = triangles.runs.begin(); run != triangles.runs.end();) {
        if (watch.stop.stop_requested())
            return tl::unexpected(cancelledError());
        const auto end = std::find_if(run, triangles.runs.end(), [run](const Run& other) {
            return other.material != run->material;
        });
        const std::uint32_t material = run->material;
        PieceMaker maker(polygons, triangles, firstVertices);
        std::size_t count = 0;
        for (auto each = run; each != end; ++each)
            count += each->count;
        maker.reserve(count);
        for (; run != end; ++run)
            maker.add(*run);
        if (count == 0)
            continue;
        Piece piece = maker.take(added.origin);
        piece.name = options.name;
        piece.isDoubleSided = options.isDoubleSided;
        if (material != Polygons::kNone)
            piece.material = material;
        scene.pieces.push_back(std::move(piece));
        ++added.count;
    }
    return added;
}

void place(ObjectScene& scene, const AddedPieces& pieces, const glm::dmat4& transform) {
    const glm::dmat4 placed = glm::translate(transform, pieces.origin);
    for (std::size_t i = 0; i < pieces.count; ++i)
        scene.placements.push_back({pieces.first + i, placed});
}

} // namespace zelvo::object
