// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/NewFile.h"

#include <filesystem>
#include <string>
#include <vector>

namespace zelvo::foundation {

/// Copies a file, which appears whole or not at all. A file onto itself stays as it is. Errors, which
/// name the file: `unreadable`, `unwritable`.
[[nodiscard]] Result<void> copyFile(
    const std::filesystem::path& source,
    const std::filesystem::path& target,
    NewFile::Placing placing = NewFile::Placing::replacing);

/// The names of the files in a folder without hidden ones, in no order. Empty if the folder cannot be
/// read, which is logged.
[[nodiscard]] std::vector<std::string> visibleFilesIn(const std::filesystem::path& folder);

} // namespace zelvo::foundation
