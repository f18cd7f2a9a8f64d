// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"

#include <filesystem>

namespace zelvo::hint {

/// Draws the performance, paints the interface and the hand over it, and writes the hint's movie:
/// H.264, 640 x 360, 30 frames a second, silent. Errors: unavailable where the machine cannot draw;
/// those of the performance file and of writing.
[[nodiscard]] foundation::Result<void>
makeHintMovie(const std::filesystem::path& performanceFile, const std::filesystem::path& movie);

} // namespace zelvo::hint
