// SPDX-License-Identifier: MIT
#pragma once

#include "document/Performance.h"

#include <filesystem>
#include <string>

namespace zelvo::document {

/// The text of a performance file: JSON that the reader reads, a line for each cue. Numbers have the
/// digits that give the same single-precision value again.
[[nodiscard]] std::string written(const Performance& performance);

/// The style with paths for a file in `folder`: relative for what lies in the folder or below it.
/// Absolute paths otherwise, so that the file still works when it is moved.
[[nodiscard]] Style relativeTo(Style style, const std::filesystem::path& folder);

} // namespace zelvo::document
