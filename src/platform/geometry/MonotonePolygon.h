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
    bool isTop = false; ///< whether it belongs to the upper chain
};

/// Cuts a monotone polygon into triangles, given as the corners' ids, counter-clockwise. `bottom`
/// is the lower chain from the leftmost to the rightmost corner, inclusive; `top` is the upper
/// chain between them, left to right.
///
/// The result is always n - 2 triangles that use each side once. If rounding makes a chain turn
/// back a little, a triangle is folded, but there is never a hole.
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
