// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <vector>

namespace zelvo::ui {

/// What a folder of the user may contain, so that nobody brings in a whole disk by mistake.
struct FolderLimits {
    std::size_t entries = 10'000;
    int depth = 16;
    std::uint64_t bytes = std::uint64_t{2} << 30U; ///< of all files together
};

/// The files in a folder and the folders in it, in the order of their paths. Hidden ones, those
/// below hidden folders, and what is behind links are left out. Errors: `tooLarge`, `unreadable`.
[[nodiscard]] foundation::Result<std::vector<std::filesystem::path>>
filesBelow(const std::filesystem::path& folder, const FolderLimits& limits);

} // namespace zelvo::ui
