// SPDX-License-Identifier: MIT
#pragma once

#include "platform/object/ObjectScene.h"

#include <filesystem>

namespace zelvo::object {

/// Reads a 3D file; its extension tells the format. Any thread.
///
/// Errors: `notFound`, `unreadable`, `malformed`, `tooLarge`, `unsupported`, `cancelled`. The message
/// begins with the file's name: "ship.obj: there are no faces …". A missing texture or library is no
/// error, but a warning of the scene.
[[nodiscard]] foundation::Result<ObjectScene>
readObject(const std::filesystem::path& file, const Watch& watch = {});

} // namespace zelvo::object
