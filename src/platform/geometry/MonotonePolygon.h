// SPDX-License-Identifier: MIT
#pragma once

#include <glm/vec2.hpp>

#include <array>
#include <cstdint>
#include <span>
#include <vector>

namespace zelvo::geometry {

/// A corner of a polygon that every vertical line cuts at most twice.
struct MonotoneCorner {
    glm::dvec2 at{};
    std::uint32_t id = 0;
    bool isTop = false; ///< which of the two chains it belongs to
};

/// Cuts a monotone polygon into triangles of the corners' ids, counter-clockwise. `bottom` holds
/// the lower chain from the leftmost corner to the rightmost, both included, `top` the upper chain
/// between them, left to right.
///
/// Always n - 2 triangles that use each side once, whatever the positions: a chain that turns back
/// a little, as rounding can make it, gives a folded triangle, never a hole.
///
/// M. R. Garey, D. S. Johnson, F. P. Preparata, R. E. Tarjan, Triangulating a simple polygon, 1978.
class MonotoneTriangulator {
public:
    /// Valid until the next call.
    [[nodiscard]] std::span<const std::array<std::uint32_t, 3>>
    cut(std::span<const MonotoneCorner> bottom, std::span<const MonotoneCorner> top);

private:
    void merge(std::span<const MonotoneCorner> bottom, std::span<const MonotoneCorner> top);
    void addOpposite(const MonotoneCorner& corner);
    void addSameSide(const MonotoneCorner& corner);
    void emit(const MonotoneCorner& a, const MonotoneCorner& b, const MonotoneCorner& c);

    std::vector<MonotoneCorner> sequence;
    std::vector<MonotoneCorner> stack;
    std::vector<std::array<std::uint32_t, 3>> triangles;
};

} // namespace zelvo::geometry
