// SPDX-License-Identifier: MIT
#pragma once

#include "document/PerformanceReader.h"

#include <filesystem>
#include <string>
#include <vector>

namespace zelvo::document {

/// Reads a performance file. The error is one line for each problem: `demo.json:14: unknown …`.
[[nodiscard]] tl::expected<Performance, std::vector<std::string>>
loadPerformance(const std::filesystem::path& file, const Names& names);

} // namespace zelvo::document
