// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"

#include <filesystem>

namespace zelvo::thumbnails {

/// Draws a picture for each material, environment, shape and mask into `folder`/thumbnails. Errors:
/// `unavailable` if nothing can be drawn here, `unwritable`.
[[nodiscard]] foundation::Result<void> drawThumbnails(const std::filesystem::path& folder);

} // namespace zelvo::thumbnails
