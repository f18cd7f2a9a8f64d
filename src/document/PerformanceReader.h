// SPDX-License-Identifier: MIT
#pragma once

#include "document/Performance.h"
#include "document/Settings.h"
#include "platform/foundation/Json.h"

#include <tl/expected.hpp>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zelvo::document {

/// The buttons of a tab, by their titles in the history.
struct TabNames {
    std::string tab;
    std::vector<std::string> titles;
    std::vector<std::string> held{}; ///< the titles of the held buttons among them
};

/// The names that a performance can use. They are a parameter, so that the reader does not depend
/// on the engine.
struct Names {
    std::vector<std::string> fonts;
    std::vector<std::string> materials;
    std::vector<std::string> objectMaterials; ///< the materials that the media node can have
    std::vector<std::string> shapes;
    std::vector<std::string> masks;
    std::vector<std::string> scenes;
    std::vector<std::string> speeds; ///< upper and lower case are the same in the file
    std::vector<std::string> fades;
    std::vector<TabNames> tabs;
};

inline constexpr std::size_t kMaxCues = 10'000;
inline constexpr std::size_t kMaxTextLength = 2'000; ///< characters of one text
inline constexpr std::size_t kMaxProblems = 20;      ///< more are not reported
inline constexpr double kDefaultDuration = 8.0;      ///< seconds, if the file gives none
inline constexpr double kMinStretch = 2.0;           ///< seconds of music
inline constexpr double kCountIn = 2.0;              ///< seconds before the movie, for early cues

/// Reads a performance from JSON text, with the settings in it. The error lists the problems, those
/// of settings first, then in the order of the text, at most kMaxProblems; each one says what is
/// allowed.
[[nodiscard]] tl::expected<Performance, std::vector<foundation::Problem>> readPerformance(
    std::string_view text, const Names& names, const std::vector<Setting>& settings = {});

} // namespace zelvo::document
