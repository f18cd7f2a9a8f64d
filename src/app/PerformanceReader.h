// SPDX-License-Identifier: MIT
#pragma once

#include "app/Performance.h"
#include "platform/foundation/Json.h"

#include <tl/expected.hpp>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zelvo::app {

/// The buttons of one tab, by their titles in the history.
struct TabNames {
    std::string tab;
    std::vector<std::string> titles;
    std::vector<std::string> held{}; ///< those of them that last as long as they are held
};

/// The names a performance may use. Handed in, so that the reader knows nothing of the engine.
struct Names {
    std::vector<std::string> fonts;
    std::vector<std::string> materials;
    std::vector<std::string> objectMaterials; ///< those that the media node has
    std::vector<std::string> shapes;
    std::vector<std::string> masks;
    std::vector<std::string> scenes;
    std::vector<std::string> speeds; ///< accepted in any case of letters
    std::vector<std::string> fades;
    std::vector<TabNames> tabs;
};

inline constexpr std::size_t kMaxCues = 10'000;
inline constexpr std::size_t kMaxTextLength = 2'000; ///< characters of one text
inline constexpr std::size_t kMaxProblems = 20;      ///< more are not listed
inline constexpr double kDefaultDuration = 8.0;      ///< seconds, where the file says none
inline constexpr double kMinStretch = 2.0;           ///< seconds, of music
inline constexpr double kCountIn = 2.0; ///< seconds before the movie in which cues may stand

/// Reads a performance from JSON text. All problems are collected, in the order of the text, up to
/// kMaxProblems; each says what would be right.
[[nodiscard]] tl::expected<Performance, std::vector<foundation::Problem>>
readPerformance(std::string_view text, const Names& names);

} // namespace zelvo::app
