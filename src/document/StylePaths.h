// SPDX-License-Identifier: MIT
#pragma once

#include "document/Performance.h"

#include <filesystem>
#include <functional>
#include <string>

namespace zelvo::document {

/// Calls back for the path of each file that the style names: fonts, picture or video, object, song.
void forEachPath(Style& style, const std::function<void(std::string& path)>& call);

/// The style with absolute paths: those in the file are relative to `folder`.
[[nodiscard]] Style resolved(Style style, const std::filesystem::path& folder);

/// The style with paths for a file in `folder`: relative for what lies in the folder or below it, so
/// that both can be moved together. Absolute paths otherwise.
[[nodiscard]] Style relativeTo(Style style, const std::filesystem::path& folder);

} // namespace zelvo::document
