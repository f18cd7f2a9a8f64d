// SPDX-License-Identifier: MIT
#pragma once

#include "platform/geometry/Mesh.h"
#include "platform/object/Polygons.h"

namespace zelvo::object {

/// Gives every corner a normal. Corners that have none, or one of length zero, get the mean of the
/// faces around their place, as the face's `smoothing` tells, weighted by the faces' angles there
/// (G. Thürmer, C. A. Wüthrich, Computing vertex normals from polygonal facets, 1998). Points at the
/// same place count as one, because many programs write a point several times. Faces without area
/// give no normal.
///
/// The polygons must be without broken faces; see dropBrokenFaces().
void completeNormals(Polygons& polygons, double creaseAngle);

/// Sets the tangents of a mesh from its texture coordinates. Vertices must not be shared by
/// triangles whose pictures are mirrored to each other.
void addTangents(geometry::Mesh& mesh);

/// Whether the picture on this triangle is mirrored: then u and v turn clockwise. False if the
/// texture coordinates have no area.
[[nodiscard]] bool isPictureMirrored(const glm::vec2& a, const glm::vec2& b, const glm::vec2& c);

} // namespace zelvo::object
