// SPDX-License-Identifier: MIT
#pragma once

#include <glm/vec2.hpp>

#include <span>
#include <string_view>

namespace zelvo::content {

/// A figure of the strip that is an extruded outline.
struct ShapeOutline {
    std::string_view name;
    std::string_view path; ///< SVG path data, y down
    float minMax;          ///< scene units that the outline's larger side is scaled to
    glm::vec2 shift;       ///< of the outline as drawn, towards the origin
    double depth;          ///< of the extrusion, in units of the outline
    double chamfer;        ///< its radius, in units of the outline; may be more than the depth
};

[[nodiscard]] std::span<const ShapeOutline> shapeOutlines();

} // namespace zelvo::content
