// SPDX-License-Identifier: MIT
#pragma once

#include "platform/geometry/Mesh.h"

namespace zelvo::geometry {

/// Whether a mesh is the whole surface of one or more solids, seen from outside: each edge has a
/// triangle on either side, and every connected part has a positive volume. From outside, its back
/// faces are always hidden. Vertices at equal positions count as one.
[[nodiscard]] bool isClosedSolid(const Mesh& mesh);

} // namespace zelvo::geometry
