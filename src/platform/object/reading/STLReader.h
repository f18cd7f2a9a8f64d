// SPDX-License-Identifier: MIT
#pragma once

#include "platform/object/ObjectScene.h"
#include "platform/object/reading/TextLines.h"

#include <cstdint>
#include <string>

namespace zelvo::object {

/// Reads an STL file, binary or text. It has triangles only: no materials, no units, and normals
/// that often are wrong, so they are made anew, smooth below 30 degrees. Points at the same place
/// are joined and counted once. By custom z is up.
///
/// Errors: `malformed`, `tooLarge`, `cancelled`.
[[nodiscard]] foundation::Result<ObjectScene>
readSTL(const ByteSource& source, std::uint64_t size, const std::string& name, const Watch& watch);

} // namespace zelvo::object
