// SPDX-License-Identifier: MIT
#pragma once

#include "document/Settings.h"
#include "platform/foundation/Json.h"

#include <tl/expected.hpp>

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace zelvo::app {

/// A row of a batch's table: a movie to make.
struct BatchRow {
    int line = 1;
    std::string movie; ///< file name
    std::vector<document::Setting> settings;
    std::string problem; ///< why no movie can be made of it; empty: none known
};

/// Reads the rows of a table: a column for each key, and perhaps one with the names of the movies.
/// Relative paths in it are relative to `folder`, which must be absolute. Error: the table cannot be
/// used at all.
[[nodiscard]] tl::expected<std::vector<BatchRow>, foundation::Problem>
readBatchTable(std::string_view text, const std::filesystem::path& folder);

} // namespace zelvo::app
