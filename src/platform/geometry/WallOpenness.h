// SPDX-License-Identifier: MIT
#pragma once

#include "platform/geometry/Outline.h"

#include <array>
#include <vector>

namespace zelvo::geometry {

/// How much light reaches the far end of the side walls of a solid: deep in a narrow counter of a
/// letter there is little.
///
///        front
///     |  \ | /  |        the light that comes to the end of a wall passes the other walls
///     |   \|/   |
///     |____*____|
///        back
///
/// Other solids are not looked at, and the light is taken as coming evenly from the front.
class WallOpenness {
public:
    /// Which end of the piece of boundary. At a corner, the walls on both sides have a value each.
    enum class End { start, end };

    /// Takes a time that grows in proportion to the corners, as at most `kMaxViews` places look
    /// around; those between them take over their views.
    explicit WallOpenness(const Outline& outline);

    static constexpr std::size_t kMaxViews = 96; ///< more at real corners, where two walls look
    static constexpr std::size_t kRays = 16;

    /// 0 (dark) to 1 (open), for the piece that starts at a corner and a wall of this height.
    [[nodiscard]] float at(std::uint32_t corner, End end, double height) const;

private:
    /// For each ray, 1 / the distance to the wall that it meets; 0: none.
    using View = std::array<float, kRays>;

    /// Their directions.
    struct Rays {
        View x;
        View y;
    };

    struct Place {
        glm::dvec2 position;
        glm::dvec2 normal;
    };

    [[nodiscard]] static Place placeOf(const Outline& outline, std::uint32_t corner, End end);
    [[nodiscard]] static Rays raysFrom(const glm::dvec2& normal);
    /// Notes which rays meet the wall from a to b, seen from where they start.
    static void meet(const Rays& rays, const glm::vec2& a, const glm::vec2& b, View& view);
    [[nodiscard]] static View viewFrom(const Outline& outline, const Place& place);

    std::vector<View> views;
    std::vector<std::uint32_t> startViews; ///< by corner: of the piece that starts there
    std::vector<std::uint32_t> endViews;
};

} // namespace zelvo::geometry
