// SPDX-License-Identifier: MIT
#pragma once

#include <glm/vec2.hpp>
#include <glm/vec3.hpp>

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace zelvo::object {

/// The normal of a polygon, with twice its area as length (Newell's method). It is right for
/// polygons that are concave or not quite flat.
[[nodiscard]] glm::dvec3 newellNormal(std::span<const glm::dvec3> corners);

/// Cuts polygons in space into triangles. Keeps its memory between polygons.
///
/// The polygon is projected along its normal. Convex quads are cut along the shorter diagonal, other
/// convex polygons as a fan, concave ones by ears (G. H. Meisters, Polygons have ears, 1975). A hole
/// may be part of the outline: it runs there and back along the same side, so that its two corners
/// come twice. If a polygon crosses itself so that nothing fits, it is cut as a fan, because that is
/// better than a hole.
class PolygonTriangulator {
public:
    using Triangle = std::array<std::uint32_t, 3>;

    /// Triangles of indices into `corners`. Corners that repeat their neighbour are joined; if fewer
    /// than three different ones are left, there are no triangles. Valid until the next call.
    [[nodiscard]] std::span<const Triangle> cut(std::span<const glm::dvec3> corners);

private:
    void joinRepeated(std::span<const glm::dvec3> corners);
    void project(std::span<const glm::dvec3> corners, const glm::dvec3& normal);
    void cutQuad(std::span<const glm::dvec3> corners, const glm::dvec3& normal);
    void cutAsFan();
    [[nodiscard]] bool isConvex() const;
    [[nodiscard]] bool cutEars();
    [[nodiscard]] bool isEar(std::uint32_t at) const;
    void link();
    [[nodiscard]] bool isWhole() const;
    [[nodiscard]] bool cutByTessellator();
    [[nodiscard]] double turnAt(std::uint32_t at) const;

    std::vector<std::uint32_t> kept; ///< the corners that are left, as indices into the input
    std::vector<glm::dvec2> flat;    ///< the kept corners, projected
    std::vector<std::uint32_t> previous, next; ///< ring of the corners that are not yet cut off
    std::vector<Triangle> triangles;           ///< first of kept corners, at the end of the input's
    std::uint64_t testsLeft = kMaxTests;

    /// Ears take a time that grows with the square of the corners. When a file has used this many
    /// tests (some seconds), its other concave polygons are cut as fans.
    static constexpr std::uint64_t kMaxTests = 2'000'000'000;
    /// The tessellator's time grows with the crossings, of which there are at most as many as the
    /// square of the corners; each is about this many tests.
    static constexpr std::uint64_t kTestsPerCrossing = 1000;
    static constexpr std::size_t kMaxTessellated = 256; ///< corners; more take too long
};

} // namespace zelvo::object
