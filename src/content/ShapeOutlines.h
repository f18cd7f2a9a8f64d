// SPDX-License-Identifier: MIT
#pragma once

#include <glm/vec2.hpp>

#include <span>
#include <string_view>

namespace zelvo::content {

/// A shape that is an extruded outline.
struct ShapeOutline {
    std::string_view name;
    std::string_view path; ///< SVG path data, y down
    float minMax;          ///< scene units; the outline's longer side is scaled to this
    glm::vec2 shift;       ///< moves the outline to the origin
    double depth;          ///< of the extrusion, in units of the outline
    double chamfer;        ///< radius, in units of the outline; can be more than the depth
};

[[nodiscard]] std::span<const ShapeOutline> shapeOutlines();

} // namespace zelvo::content
