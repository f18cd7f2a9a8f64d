// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"

#include <array>
#include <filesystem>
#include <string>
#include <string_view>

namespace zelvo::document {

/// The templates: finished performances that come with the program, in which the user only changes
/// the words. Each is a file templates/NAME.json of the resources, with a preview. In the order of
/// the screen that offers them.
inline constexpr auto kTemplates = std::to_array<std::string_view>({
    "night",
    "sport",
    "gaming",
    "wedding",
    "news",
    "kids",
    "horror",
    "space",
    "retro",
    "minimal",
    "luxury",
    "countdown",
});

/// A preview: a small movie in a loop, as one picture, because drawing twelve of them at once must
/// cost next to nothing. Its frames stand in rows:
///
///      0  1  2  3  4  5
///      6  7  8 …
struct TemplatePreview {
    static constexpr int kWidth = 256; ///< pixels of a frame
    static constexpr int kHeight = 144;
    static constexpr int kColumns = 6;
    static constexpr int kFrames = 36;
    static constexpr int kFramesPerSecond = 12;
    static constexpr int kMaxBytes = 150 * 1024;
};

/// The preview's file, below the resources: templates/NAME.jpg.
[[nodiscard]] std::string previewName(std::string_view name);

/// The performance file of a template. Error: `notFound`, with a suggestion.
[[nodiscard]] foundation::Result<std::filesystem::path> templateFile(std::string_view name);

} // namespace zelvo::document
