// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace zelvo::foundation {

/// How many single edits (insert, delete, replace, swap of neighbours) lead from one text to the
/// other; the case of ASCII letters does not count. The restricted Damerau-Levenshtein distance.
[[nodiscard]] int editDistance(std::string_view from, std::string_view to);

/// The candidate that was most likely meant, absent if none is near.
[[nodiscard]] std::optional<std::string>
nearest(std::string_view given, std::span<const std::string> candidates);

} // namespace zelvo::foundation
