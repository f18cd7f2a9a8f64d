// SPDX-License-Identifier: MIT
#pragma once

#include "document/PerformanceReader.h"
#include "platform/foundation/Result.h"

#include <filesystem>
#include <string>
#include <vector>

namespace zelvo::document {

/// Reads a performance file, with the settings in it. The error is one line for each problem:
/// `demo.json:14: unknown …`.
[[nodiscard]] tl::expected<Performance, std::vector<std::string>> loadPerformance(
    const std::filesystem::path& file,
    const Names& names,
    const std::vector<Setting>& settings = {});

/// Writes a performance file, which appears complete or not at all. Paths below its folder become
/// relative. Error: `unwritable`.
[[nodiscard]] foundation::Result<void>
savePerformance(Performance performance, const std::filesystem::path& file);

} // namespace zelvo::document
