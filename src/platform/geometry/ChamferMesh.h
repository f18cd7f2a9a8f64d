// SPDX-License-Identifier: MIT
#pragma once

#include "platform/geometry/ChamferProfile.h"
#include "platform/geometry/MedialMap.h"
#include "platform/geometry/Mesh.h"
#include "platform/geometry/MonotonePolygon.h"
#include "platform/geometry/Outline.h"

#include <array>
#include <cstdint>
#include <span>
#include <vector>

namespace zelvo::geometry {

/// The front chamfer of a solid and the edge of its face. Height 0 is the edge of the side wall.
struct ChamferMesh {
    using Triangle = std::array<std::uint32_t, 3>;

    std::vector<Vertex> vertices;
    std::vector<std::uint32_t> indices;

    std::vector<glm::dvec2> points;                    ///< the faces' indices refer to these
    std::vector<std::array<std::uint32_t, 2>> faceRim; ///< directed sides; the face is on the left
    std::vector<Triangle> faceTriangles;               ///< only with Faces::fromCells
};

/// Cuts the cells of a map into strips, at the levels of a profile. Where a cell is lower than the
/// face, its strips end in the ridge to the next cell. The crossings of a link are computed once
/// and used by both of its cells, so there are no gaps.
class ChamferMesher {
public:
    enum class Faces : std::uint8_t { rimOnly, fromCells };

    /// `textureScale`: texture coordinates per scene unit.
    ChamferMesher(
        const Outline& outline,
        const MedialMap& map,
        const ChamferProfile& profile,
        double textureScale);

    [[nodiscard]] ChamferMesh build(Faces faces);

private:
    /// A corner of a cell's chain, and its rank among the levels: 2 k on level k, 2 k + 1 between k
    /// and k + 1.
    struct Knot {
        std::uint32_t point = 0;
        std::uint32_t rank = 0;
    };

    /// Data for the whole cell.
    struct Frame {
        MedialMap::Site site = MedialMap::Site::piece;
        const OutlineCorner* corner = nullptr;
        glm::dvec2 normalAtStart{};
        glm::dvec2 normalAtEnd{};
        double leanAtStart = 0; ///< how far the cell's side slants inwards per unit of distance
        double leanAtEnd = 0;
        bool isRound = false; ///< the cell of a real corner, shaded as a fan
    };

    /// The boundary's direction at a point of a cell.
    struct Facing {
        glm::dvec2 normal{};
        double arc = 0;
    };

    void rankPoints();
    std::uint32_t cutLink(std::uint32_t a, std::uint32_t b);
    [[nodiscard]] Frame frameOf(const MedialMap::Cell& cell) const;
    void appendCrossings(std::uint32_t from, std::uint32_t to, std::uint32_t link);
    void appendSteps(std::span<const MedialMap::Step> steps);
    void cutFan(std::span<const MedialMap::Step> steps);
    [[nodiscard]] bool isWedge(std::span<const MedialMap::Step> steps) const;
    void cutChain();
    void closeRun(std::size_t level, std::uint32_t end);
    void fillBand(std::size_t band);
    void fillFan();
    void fillFace();
    [[nodiscard]] std::span<const MonotoneCorner>
    place(std::span<const std::uint32_t> ids, std::vector<MonotoneCorner>& placed) const;
    [[nodiscard]] glm::dvec2 cellPosition(std::uint32_t point) const;
    [[nodiscard]] double fanAngle(glm::dvec2 position) const;
    [[nodiscard]] Facing facingAt(std::uint32_t point) const;
    [[nodiscard]] std::uint32_t vertexAt(std::uint32_t point, std::size_t band);
    [[nodiscard]] Vertex
    makeVertex(std::uint32_t point, std::size_t band, const Facing& facing) const;
    std::uint32_t addPoint(glm::dvec2 position, double distance);
    void emit(std::uint32_t a, std::uint32_t b, std::uint32_t c);

    const Outline& outline;
    const MedialMap& map;
    const ChamferProfile& profile;
    double textureScale;
    std::size_t lastLevel;
    Faces faces = Faces::rimOnly;

    // By point: first those of the map, then the crossings.
    std::vector<double> distances;
    std::vector<std::uint32_t> ranks; // only for the map's points
    std::vector<std::uint32_t> vertexOf;

    // By link, first those of the map, then the sides of wedges: the crossing with the lowest
    // level.
    std::vector<std::uint32_t> firstCrossing;

    Frame frame;
    std::vector<Knot> chain;
    std::vector<std::uint32_t> runStart;          // by level
    std::vector<std::vector<std::uint32_t>> tops; // by band: the upper chain of the open piece
    std::vector<std::uint32_t> run;
    std::vector<MonotoneCorner> placedBottom;
    std::vector<MonotoneCorner> placedTop;
    MonotoneTriangulator triangulator;
    ChamferMesh mesh;
};

} // namespace zelvo::geometry
