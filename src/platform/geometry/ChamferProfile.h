// SPDX-License-Identifier: MIT
#pragma once

#include "platform/geometry/BezierPath.h"

#include <cstddef>
#include <vector>

namespace zelvo::geometry {

/// A chamfer's cross-section over the distance to the outline, as straight bands from the rim of
/// the side wall (level 0, distance 0, height 0) to the rim of the face (the last level). All
/// lengths are scene units.
class ChamferProfile {
public:
    /// Where the surface stands and where it faces: the parts of its unit normal away from the
    /// solid, in plan, and up.
    struct Surface {
        double height = 0;
        double outward = 0;
        double up = 1;
        double arc = 0; ///< length of the cross-section from the rim of the wall
    };

    /// No chamfer: level 0 alone, at height 0.
    ChamferProfile();
    /// The path as ExtrusionOptions tells; `width` in plan, `height` along z, both > 0.
    ChamferProfile(const BezierPath& path, double width, double height);

    [[nodiscard]] std::size_t levelCount() const { return levels.size(); }

    [[nodiscard]] double distanceOf(std::size_t level) const { return levels[level].distance; }

    [[nodiscard]] double width() const { return levels.back().distance; }

    [[nodiscard]] double height() const { return levels.back().height; }

    /// The surface at a distance within the band between a level and the next one.
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
        Direction above; ///< and at the lower end of the band above
    };

    std::vector<Level> levels;
};

} // namespace zelvo::geometry
