// SPDX-License-Identifier: MIT
#include "platform/geometry/MedialMap.h"

#include "platform/geometry/MedialMapBuilder.h"

namespace zelvo::geometry {

MedialMapResult makeMedialMap(const Outline& outline) {
    if (outline.corners.empty())
        return {.map = {}, .isValid = true};
    boost::polygon::default_voronoi_builder sites;
    for (const OutlineCorner& corner : outline.corners) {
        const GridPoint end = outline.corners[corner.next].grid;
        sites.insert_segment(corner.grid.x, corner.grid.y, end.x, end.y);
    }
    Diagram diagram;
    sites.construct(&diagram);
    return MedialMapBuilder(outline, diagram).build();
}

} // namespace zelvo::geometry
