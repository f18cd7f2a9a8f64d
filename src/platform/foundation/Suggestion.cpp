// SPDX-License-Identifier: MIT
#include "platform/foundation/Suggestion.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace zelvo::foundation {

namespace {

/// Longer texts are no typing errors, and the time grows with the product of the lengths.
constexpr std::size_t kMaxLength = 80;

[[nodiscard]] char folded(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

} // namespace

int editDistance(std::string_view from, std::string_view to) {
    std::vector<int> beforeLast(to.size() + 1);
    std::vector<int> last(to.size() + 1);
    std::vector<int> row(to.size() + 1);
    for (std::size_t j = 0; j <= to.size(); ++j)
        last[j] = static_cast<int>(j);
    for (std::size_t i = 1; i <= from.size(); ++i) {
        row[0] = static_cast<int>(i);
        for (std::size_t j = 1; j <= to.size(); ++j) {
            const char a = folded(from[i - 1]);
            const char b = folded(to[j - 1]);
            row[j] = std::min({last[j] + 1, row[j - 1] + 1, last[j - 1] + (a == b ? 0 : 1)});
            const bool isSwap =
                i > 1 && j > 1 && a == folded(to[j - 2]) && b == folded(from[i - 2]);
            if (isSwap)
                row[j] = std::min(row[j], beforeLast[j - 2] + 1);
        }
        std::swap(beforeLast, last);
        std::swap(last, row);
    }
    return last[to.size()];
}

std::optional<std::string>
nearest(std::string_view given, std::span<const std::string> candidates) {
    if (given.empty() || given.size() > kMaxLength)
        return std::nullopt;
    const auto limit = std::max(1, std::min(4, static_cast<int>(given.size()) / 3));
    std::optional<std::string> best;
    int bestDistance = limit + 1;
    for (const auto& candidate : candidates) {
        if (candidate.size() > kMaxLength)
            continue;
        const int distance = editDistance(given, candidate);
        if (distance >= bestDistance)
            continue;
        best = candidate;
        bestDistance = distance;
    }
    return best;
}

} // namespace zelvo::foundation
