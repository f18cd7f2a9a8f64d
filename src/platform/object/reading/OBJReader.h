// SPDX-License-Identifier: MIT
#pragma once

#include "platform/object/ObjectScene.h"
#include "platform/object/reading/NeighbourFiles.h"
#include "platform/object/reading/TextLines.h"

#include <cstdint>
#include <string>

namespace zelvo::object {

/// A text and what stands beside it.
struct OBJSource {
    ByteSource bytes;
    std::uint64_t size = 0;    ///< of the bytes; for the memory to set aside, and the progress
    std::string name;          ///< of the file: a library of the same name is tried
    NeighbourFiles neighbours; ///< where libraries and pictures are
};

/// Reads a Wavefront OBJ file with its material libraries, tolerantly: a bad line costs that line, a
/// bad face that face, a missing library the materials.
///
/// Takes polygons with texture coordinates, normals, vertex colours (six numbers of a `v`, or
/// #MRGB), smoothing groups and materials. Objects and groups are not kept apart: there is one piece
/// for each material. Lines, points, curves and surfaces are skipped. The file has no units, and y
/// is taken as up.
///
/// Errors: `malformed` if there is no face, `tooLarge`, `cancelled`.
[[nodiscard]] foundation::Result<ObjectScene> readOBJ(OBJSource source, const Watch& watch);

} // namespace zelvo::object
