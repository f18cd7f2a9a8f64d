// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace zelvo::text {

/// A font that the desktop offers to all programs.
struct SystemFont {
    std::string name; ///< full name
    std::filesystem::path file;
    unsigned faceIndex = 0; ///< in a collection
};

/// Those with outlines in a format that readFaces knows; named instances of variable fonts are left
/// out. In no order. Any thread. Takes some milliseconds, or seconds if the desktop's list of fonts
/// has to be made anew.
[[nodiscard]] std::vector<SystemFont> systemFonts();

} // namespace zelvo::text
