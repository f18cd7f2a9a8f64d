// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

namespace zelvo::ui {

class Alerts;

/// What becomes of files that the system hands over. Has no state.
struct FileSystem {
    /// Whether the program took the file; says so where it did not.
    static bool open(const std::filesystem::path& file, Alerts& alerts);
};

} // namespace zelvo::ui
