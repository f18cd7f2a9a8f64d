// SPDX-License-Identifier: MIT
#pragma once

#include "platform/geometry/BezierPath.h"

#include <glm/vec2.hpp>

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zelvo::geometry {

/// One segment in absolute coordinates, y down.
struct SVGCommand {
    enum class Kind : std::uint8_t { move, line, cubeCurve, quadCurve, close };

    glm::dvec2 point{}; ///< the end point; (0, 0) for close
    glm::dvec2 control1{};
    glm::dvec2 control2{};
    Kind type = Kind::move;
};

/// Reads SVG path data ("M0,0L10,5Z") into a list of segments: the letters M L H V Q T C S in both
/// cases, and Z. It never fails: other letters separate numbers, an incomplete group is dropped,
/// and a part that is not a number becomes NaN.
///
/// To stay small it differs from the standard: a repeated move stays a move, there are no arcs, "z"
/// closes nothing, a second decimal point does not start a new number, and relative coordinates
/// after Z count from the origin.
class SVGPath {
public:
    explicit SVGPath(std::string_view data);

    std::vector<SVGCommand> commands;

private:
    enum class Coordinates : std::uint8_t { absolute, relative };
    using Builder = SVGCommand (*)(std::span<const double>, const SVGCommand*, Coordinates);
    struct Letter;
    struct Builders;

    [[nodiscard]] static const Letter* letterOf(char character);
    void finishCommand();

    Builder builder; ///< makes a command from a group of numbers
    Coordinates coords = Coordinates::absolute;
    std::size_t increment = 2; ///< numbers in a group
    std::string numbers;       ///< read since the last letter
};

/// The path for drawing, still y down. A segment without a start point becomes a move.
[[nodiscard]] BezierPath bezierPath(std::string_view svgPath);

} // namespace zelvo::geometry
