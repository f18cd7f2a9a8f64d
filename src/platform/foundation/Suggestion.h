// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace zelvo::foundation {

/// The number of single edits (insert, delete, replace, swap neighbours) from one text to the
/// other, ignoring ASCII case. The restricted Damerau-Levenshtein distance.
[[nodiscard]] int editDistance(std::string_view from, std::string_view to);

/// The candidate that was probably meant; nothing if none is similar.
[[nodiscard]] std::optional<std::string>
nearest(std::string_view given, std::span<const std::string> candidates);

} // namespace zelvo::foundation
