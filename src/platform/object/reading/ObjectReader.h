// SPDX-License-Identifier: MIT
#pragma once

#include "platform/object/ObjectScene.h"

#include <filesystem>
#include <span>
#include <string_view>

namespace zelvo::object {

/// Reads a 3D file; its extension tells the format. Any thread.
///
/// Errors: `notFound`, `unreadable`, `malformed`, `tooLarge`, `unsupported`, `cancelled`. The message
/// begins with the file's name: "ship.obj: there are no faces …". A missing texture or library is no
/// error, but a warning of the scene.
[[nodiscard]] foundation::Result<ObjectScene>
readObject(const std::filesystem::path& file, const Watch& watch = {});

/// The extensions of the files that are read, each with its dot: ".obj".
[[nodiscard]] std::span<const std::string_view> objectExtensions();

} // namespace zelvo::object
