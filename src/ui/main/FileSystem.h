// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

namespace zelvo::ui {

class Alerts;

/// Handles files that the system passes to the program.
struct FileSystem {
    /// Whether the program has accepted the file; otherwise it shows an alert.
    static bool open(const std::filesystem::path& file, Alerts& alerts);
};

} // namespace zelvo::ui
