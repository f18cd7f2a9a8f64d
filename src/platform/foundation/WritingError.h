// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"

#include <filesystem>

namespace zelvo::foundation {

/// Turns the errno of opening, writing or renaming a file into an error: `unwritable`, with advice.
[[nodiscard]] Error writingError(int errorNumber, const std::filesystem::path& file);

} // namespace zelvo::foundation
