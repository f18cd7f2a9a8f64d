// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"

#include <filesystem>

namespace zelvo::foundation {

/// What an errno of opening, writing or renaming says of the file: unwritable, with what to do
/// about it.
[[nodiscard]] Error writingError(int errorNumber, const std::filesystem::path& file);

} // namespace zelvo::foundation
