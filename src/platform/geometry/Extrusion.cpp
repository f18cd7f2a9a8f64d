// SPDX-License-Identifier: MIT
#include "platform/geometry/Extrusion.h"

#include "platform/foundation/Check.h"
#include "platform/geometry/ChamferMesh.h"
#include "platform/geometry/ChamferProfile.h"
#include "platform/geometry/FaceTessellator.h"
#include "platform/geometry/MedialMap.h"
#include "platform/geometry/Outline.h"
#include "platform/geometry/WallOpenness.h"

#include <glm/common.hpp>

#include <algorithm>
#include <cmath>
#include <mutex>
#include <optional>
#include <utility>

namespace zelvo::geometry {

class OutlineSkeleton {
public:
    explicit OutlineSkeleton(Outline outline)
        : outline_(std::move(outline)) {
        if (outline_.corners.empty())
            return;
        min = max = outline_.corners.front().position;
        for (const OutlineCorner& corner : outline_.corners) {
            min = glm::min(min, corner.position);
            max = glm::max(max, corner.position);
        }
        textureScale = 1 / std::max(max.x - min.x, max.y - min.y);
    }

    [[nodiscard]] const Outline& outline() const { return outline_; }

    /// Made on the first call, because only chamfers need it. Null if the outline allows none.
    [[nodiscard]] const MedialMap* map() const {
        std::call_once(mapMade, [this] { result = makeMedialMap(outline_); });
        return result.isValid ? &result.map : nullptr;
    }

    /// Made on the first call.
    [[nodiscard]] const WallOpenness& openness() const {
        std::call_once(opennessMade, [this] { walls.emplace(outline_); });
        return *walls;
    }

    glm::dvec2 min{};
    glm::dvec2 max{};
    double textureScale = 1;

private:
    Outline outline_;
    mutable std::once_flag mapMade;
    mutable MedialMapResult result;
    mutable std::once_flag opennessMade;
    mutable std::optional<WallOpenness> walls;
};

namespace {

constexpr double kMinChamfer = 0.02; // scene units; smaller ones are invisible

using Triangle = ChamferMesh::Triangle;

// The parts of a solid's front half, before they become one mesh.
struct Front {
    ChamferMesh chamfer;
    std::vector<Triangle> face;
    double chamferHeight = 0;
    bool isFaceOpen = true; ///< nothing stands before the face
    bool isChamferOpen = true;
};

ChamferMesh plainRim(const Outline& outline) {
    ChamferMesh mesh;
    for (const OutlineCorner& corner : outline.corners) {
        const auto index = static_cast<std::uint32_t>(mesh.points.size());
        mesh.points.push_back(corner.position);
        mesh.faceRim.push_back({index, corner.next});
    }
    return mesh;
}

Front makeFront(const OutlineSkeleton& skeleton, const ChamferProfile& profile) {
    const MedialMap* map = profile.levelCount() > 1 ? skeleton.map() : nullptr;
    // Without a map the solid has no chamfer.
    const ChamferProfile used = map != nullptr ? profile : ChamferProfile();
    const auto makeChamfer = [&](ChamferMesher::Faces faces) {
        return ChamferMesher(skeleton.outline(), *map, used, skeleton.textureScale).build(faces);
    };
    Front front;
    front.chamferHeight = used.height();
    front.isFaceOpen = used.staysBelowFace();
    front.isChamferOpen = used.isConvex();
    front.chamfer =
        map != nullptr ? makeChamfer(ChamferMesher::Faces::rimOnly) : plainRim(skeleton.outline());
    auto face = tessellateFace(front.chamfer.points, front.chamfer.faceRim);
    if (face) {
        front.face = std::move(*face);
        return front;
    }
    map = skeleton.map();
    if (map != nullptr) {
        front.chamfer = makeChamfer(ChamferMesher::Faces::fromCells);
        front.face = front.chamfer.faceTriangles;
    }
    return front;
}

class SolidWriter {
public:
    SolidWriter(
        const OutlineSkeleton& skeleton_, const Front& front_, const ExtrusionOptions& options)
        : skeleton(skeleton_)
        , front(front_)
        , openness(options.hasOpenness ? &skeleton_.openness() : nullptr)
        , faceZ(static_cast<double>(options.depth) / 2)
        , wallZ(faceZ - front_.chamferHeight) {}

    Mesh write(bool hasChamferElements) {
        addFace(1);
        addFace(-1);
        addElement([this] { writeWalls(); });
        mesh.elements.back().hasOpenness = openness != nullptr;
        if (hasChamferElements) {
            addChamfer(1);
            addChamfer(-1);
        }
        return std::move(mesh);
    }

private:
    template <class Write> void addElement(const Write& write) {
        const auto first = static_cast<std::uint32_t>(mesh.indices.size());
        write();
        mesh.elements.push_back({first, static_cast<std::uint32_t>(mesh.indices.size()) - first});
    }

    void addFace(int side) {
        addElement([this, side] { writeFace(side); });
        mesh.elements.back().facing = {0, 0, front.isFaceOpen ? side : 0};
    }

    void addChamfer(int side) {
        addElement([this, side] { writeChamfer(side); });
        MeshElement& chamfer = mesh.elements.back();
        chamfer.isRim = true;
        chamfer.facing = {0, 0, front.isChamferOpen ? side : 0};
        chamfer.depth = static_cast<float>(front.chamferHeight);
    }

    [[nodiscard]] std::uint32_t vertexCount() const {
        return static_cast<std::uint32_t>(mesh.vertices.size());
    }

    // Corners are counter-clockwise from the front. With `side` -1 the triangle is turned for the
    // back.
    void addTriangle(Triangle corners, int side) {
        if (side < 0)
            std::swap(corners[1], corners[2]);
        mesh.indices.insert(mesh.indices.end(), corners.begin(), corners.end());
    }

    // A picture on a face is upright and not mirrored, also on the back.
    void writeFace(int side) {
        std::vector<std::uint32_t> vertexOf(front.chamfer.points.size(), UINT32_MAX);
        const auto vertexAt = [&](std::uint32_t point) {
            if (vertexOf[point] == UINT32_MAX) {
                vertexOf[point] = vertexCount();
                mesh.vertices.push_back(faceVertex(front.chamfer.points[point], side));
            }
            return vertexOf[point];
        };
        for (const auto& [a, b, c] : front.face) {
            addTriangle({vertexAt(a), vertexAt(b), vertexAt(c)}, side);
        }
    }

    [[nodiscard]] Vertex faceVertex(glm::dvec2 position, int side) const {
        const double u = side > 0 ? position.x - skeleton.min.x : skeleton.max.x - position.x;
        const double v = skeleton.max.y - position.y;
        const auto sign = static_cast<float>(side);
        return {
            .position = glm::vec3(glm::vec2(position), static_cast<float>(faceZ) * sign),
            .normal = {0, 0, sign},
            .tangent = {sign, 0, 0, -1},
            .uv = glm::vec2(glm::dvec2(u, v) * skeleton.textureScale)};
    }

    void writeWalls() {
        if (wallZ <= 0)
            return;
        for (const Outline::Loop& loop : skeleton.outline().loops) {
            for (std::uint32_t i = 0; i < loop.count; ++i) {
                writeWall(loop.first + i, i > 0);
            }
        }
    }

    // The wall over the piece that starts at a corner. At a smooth joint it shares vertices with
    // the wall before.
    void writeWall(std::uint32_t index, bool hasWallBefore) {
        const std::vector<OutlineCorner>& corners = skeleton.outline().corners;
        const OutlineCorner& start = corners[index];
        const OutlineCorner& end = corners[start.next];
        const glm::dvec2 plain = outwardNormal(start);
        if (!hasWallBefore || !start.isSmooth) {
            addWallPair(
                start.position,
                start.isSmooth ? start.normal : plain,
                start.arc,
                opennessAt(index, WallOpenness::End::start));
        }
        const std::uint32_t a = vertexCount() - 2;
        const std::uint32_t b = vertexCount();
        addWallPair(
            end.position,
            end.isSmooth ? end.normal : plain,
            start.arc + start.length,
            opennessAt(index, WallOpenness::End::end));
        mesh.indices.insert(mesh.indices.end(), {a + 1, b + 1, b, a + 1, b, a});
    }

    [[nodiscard]] float opennessAt(std::uint32_t corner, WallOpenness::End end) const {
        return openness != nullptr ? openness->at(corner, end, 2 * wallZ) : 1;
    }

    // A front and a back vertex.
    void addWallPair(glm::dvec2 position, glm::dvec2 normal, double arc, float open) {
        for (const int side : {1, -1}) {
            const double v = side > 0 ? 0 : 2 * wallZ;
            mesh.vertices.push_back(
                {.position = glm::vec3(glm::vec2(position), static_cast<float>(wallZ * side)),
                 .normal = glm::vec3(glm::vec2(normal), 0.0f),
                 .tangent = glm::vec4(
                     static_cast<float>(-normal.y), static_cast<float>(normal.x), 0.0f, -1.0f),
                 .uv = glm::vec2(glm::dvec2(arc, v) * skeleton.textureScale),
                 .openness = open});
        }
    }

    void writeChamfer(int side) {
        const std::uint32_t first = vertexCount();
        const auto sign = static_cast<float>(side);
        const auto wallHeight = static_cast<float>(2 * wallZ * skeleton.textureScale);
        for (Vertex vertex : front.chamfer.vertices) {
            vertex.position.z = (vertex.position.z + static_cast<float>(wallZ)) * sign;
            vertex.normal.z *= sign;
            if (side < 0)
                vertex.uv.y = wallHeight - vertex.uv.y;
            mesh.vertices.push_back(vertex);
        }
        for (std::size_t i = 0; i + 2 < front.chamfer.indices.size(); i += 3) {
            const std::uint32_t* corner = &front.chamfer.indices[i];
            addTriangle({first + corner[0], first + corner[1], first + corner[2]}, side);
        }
    }

    const OutlineSkeleton& skeleton;
    const Front& front;
    const WallOpenness* openness; ///< null: all is open
    double faceZ;
    double wallZ;
    Mesh mesh;
};

struct ChamferSize {
    double width = 0;
    double height = 0;

    friend bool operator==(const ChamferSize&, const ChamferSize&) = default;
};

ChamferSize chamferSizeOf(const ExtrusionOptions& options) {
    const auto depth = static_cast<double>(options.depth);
    const auto radius = static_cast<double>(options.chamferRadius);
    CHECK(std::isfinite(depth) && depth > 0, "a solid of depth {} has no inside", depth);
    CHECK(std::isfinite(radius) && radius >= 0, "a chamfer has no radius of {}", radius);
    return {radius, std::min(radius, depth / 2)};
}

ChamferProfile profileOf(const BezierPath& path, const ChamferSize& size) {
    const bool hasChamfer = size.width >= kMinChamfer;
    return hasChamfer ? ChamferProfile(path, size.width, size.height) : ChamferProfile();
}

Mesh writeSolid(
    const OutlineSkeleton& skeleton, const Front& front, const ExtrusionOptions& options) {
    return SolidWriter(skeleton, front, options).write(options.chamferRadius > 0);
}

bool areEqual(const BezierPath& a, const BezierPath& b) {
    return std::ranges::equal(a.elements(), b.elements(), [](const auto& p, const auto& q) {
        return p.verb == q.verb && p.control1 == q.control1 && p.control2 == q.control2 &&
               p.point == q.point;
    });
}

} // namespace

std::shared_ptr<const OutlineSkeleton> makeSkeleton(const BezierPath& outline, float flatness) {
    CHECK(flatness > 0, "a flatness of {} leaves no bound on the number of chords", flatness);
    return std::make_shared<const OutlineSkeleton>(
        makeOutline(outline, static_cast<double>(flatness)));
}

void prepareChamfer(const OutlineSkeleton& skeleton) {
    static_cast<void>(skeleton.map());
}

Mesh extrude(const OutlineSkeleton& skeleton, const ExtrusionOptions& options) {
    const ChamferSize size = chamferSizeOf(options);
    const Front front = makeFront(skeleton, profileOf(options.chamferProfile, size));
    return writeSolid(skeleton, front, options);
}

Mesh extrude(const BezierPath& outline, const ExtrusionOptions& options) {
    return extrude(*makeSkeleton(outline, options.flatness), options);
}

struct Extruder::State {
    std::shared_ptr<const OutlineSkeleton> skeleton;
    std::optional<Front> front{};
    ChamferSize size{}; ///< of the front
    BezierPath profile{};
};

Extruder::Extruder(std::shared_ptr<const OutlineSkeleton> outline)
    : state(std::make_unique<State>(State{.skeleton = std::move(outline)})) {}

Extruder::~Extruder() = default;

Mesh Extruder::extrude(const ExtrusionOptions& options) {
    const ChamferSize size = chamferSizeOf(options);
    const bool isKept =
        state->front && state->size == size && areEqual(state->profile, options.chamferProfile);
    if (!isKept) {
        state->front = makeFront(*state->skeleton, profileOf(options.chamferProfile, size));
        state->size = size;
        state->profile = options.chamferProfile;
    }
    return writeSolid(*state->skeleton, *state->front, options);
}

} // namespace zelvo::geometry
