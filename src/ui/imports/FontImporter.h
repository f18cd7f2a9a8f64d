// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/Services.h"

#include <filesystem>

namespace zelvo::ui {

/// The door through which fonts come in: from the desktop's file dialog, a drop on the window, or
/// the command line. Holds nothing, so it can be made where it is needed.
class FontImporter {
public:
    explicit FontImporter(const Services& given);

    /// By the extension alone: ttf, otf, ttc, otc, woff, woff2.
    [[nodiscard]] static bool isFont(const std::filesystem::path& file);
    /// By the extension alone: zip.
    [[nodiscard]] static bool isArchive(const std::filesystem::path& file);

    /// Installs a font at once; asks before it installs the fonts of an archive. True if something
    /// was installed or offered; otherwise an alert has said why not.
    bool importFile(const std::filesystem::path& file);

private:
    bool importFont(const std::filesystem::path& file);
    bool importArchive(const std::filesystem::path& file);

    Services services;
};

} // namespace zelvo::ui
