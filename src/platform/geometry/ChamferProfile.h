// SPDX-License-Identifier: MIT
#pragma once

#include "platform/geometry/BezierPath.h"

#include <cstddef>
#include <vector>

namespace zelvo::geometry {

/// The cross-section of a chamfer, as a function of the distance to the outline. It is made of
/// straight bands, from the edge of the side wall (level 0: distance 0, height 0) to the edge of
/// the face (the last level). Lengths are in scene units.
class ChamferProfile {
public:
    /// Height and unit normal of the surface. The normal has two parts: away from the solid (seen
    /// from the front) and up.
    struct Surface {
        double height = 0;
        double outward = 0;
        double up = 1;
        double arc = 0; ///< length of the cross-section up to here
    };

    /// No chamfer: only level 0, at height 0.
    ChamferProfile();
    /// The path is that of ExtrusionOptions. `width` is seen from the front, `height` along z; both
    /// > 0.
    ChamferProfile(const BezierPath& path, double width, double height);

    [[nodiscard]] std::size_t levelCount() const { return levels.size(); }

    [[nodiscard]] double distanceOf(std::size_t level) const { return levels[level].distance; }

    [[nodiscard]] double width() const { return levels.back().distance; }

    [[nodiscard]] double height() const { return levels.back().height; }

    /// Whether no part is higher than the face.
    [[nodiscard]] bool staysBelowFace() const;

    /// Whether it gets less steep towards the face, so that no part of it hides another.
    [[nodiscard]] bool isConvex() const;

    /// The surface at a distance between a level and the next one.
    [[nodiscard]] Surface surfaceAt(std::size_t band, double distance) const;

private:
    struct Direction {
        double outward = 0;
        double up = 1;
    };

    struct Level {
        double distance = 0;
        double height = 0;
        double arc = 0;
        Direction below; ///< the normal at the upper end of the band below
        Direction above; ///< the normal at the lower end of the band above
    };

    std::vector<Level> levels;
};

} // namespace zelvo::geometry
