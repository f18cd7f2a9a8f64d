// SPDX-License-Identifier: MIT
#pragma once

#include "platform/geometry/Outline.h"

#include <glm/vec2.hpp>

#include <array>
#include <cstdint>
#include <vector>

namespace zelvo::geometry {

/// Which piece or reflex corner of an outline is nearest to each inner point: the inner half of the
/// segment Voronoi diagram. A cell lies between its site and a chain of straight links. Two cells
/// that meet share the links, so that parts cut from both fit exactly.
///
///          c2 ___ c3
///           _/   \        a piece's cell: the points whose foot is on the piece
///      c1 _/      \ c4    each foot has one height
///        |         \                                        .
///     c0 o----------o c5  c0 and c5 are the piece's ends
///
/// A reflex corner's cell is the fan between the perpendiculars of its two pieces. It starts and
/// ends in the corner.
struct MedialMap {
    struct Point {
        glm::dvec2 position{};
        double distance = 0; ///< to the outline, scene units
    };

    /// A corner of a cell's chain, and the link to the next corner.
    struct Step {
        std::uint32_t point = 0;
        std::uint32_t link = 0; ///< kNoLink for the last corner
    };

    enum class Site : std::uint8_t { piece, corner };

    struct Cell {
        Site site = Site::piece;
        /// The outline's corner: where the piece starts, or the reflex corner.
        std::uint32_t corner = 0;
        std::uint32_t firstStep = 0; ///< the chain, in the outline's direction of travel
        std::uint32_t stepCount = 0;
    };

    static constexpr std::uint32_t kNoLink = UINT32_MAX;

    std::vector<Point> points; ///< the outline's corners first, in their order, at distance 0
    std::vector<std::array<std::uint32_t, 2>> links;
    std::vector<Step> steps;
    std::vector<Cell> cells;
};

/// `isValid` is false if the outline has no map, for example because pieces cross.
struct MedialMapResult {
    MedialMap map;
    bool isValid = false;
};

[[nodiscard]] MedialMapResult makeMedialMap(const Outline& outline);

} // namespace zelvo::geometry
