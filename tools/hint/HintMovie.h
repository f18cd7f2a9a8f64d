// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"

#include <filesystem>

namespace zelvo::hint {

/// Makes the movie of the hint: draws the performance, then paints the interface and the hand over
/// it. H.264, 640 x 360, 30 frames a second, silent. Errors: `unavailable` if the machine cannot
/// draw, and those of reading the performance and writing the movie.
[[nodiscard]] foundation::Result<void>
makeHintMovie(const std::filesystem::path& performanceFile, const std::filesystem::path& movie);

} // namespace zelvo::hint
