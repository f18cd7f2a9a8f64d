// SPDX-License-Identifier: MIT
#pragma once

#include "export/MovieOptions.h"
#include "platform/foundation/Result.h"

#include <array>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace zelvo::foundation {
class UserDefaults;
}

namespace zelvo::movie {

enum class ExportFormat { quickTime, mpeg4, webm, pictures };

struct ExportFormatInfo {
    ExportFormat format;
    std::string_view key;                      ///< as it is kept
    std::optional<media::Container> container; ///< nothing: a folder of PNG files
    bool canHaveAlpha;
};

// clang-format off
inline constexpr auto kExportFormats = std::to_array<ExportFormatInfo>({
    {ExportFormat::quickTime, "mov",  media::Container::quickTime, true },
    {ExportFormat::mpeg4,     "mp4",  media::Container::mpeg4,     false},
    {ExportFormat::webm,      "webm", media::Container::webm,      true },
    {ExportFormat::pictures,  "png",  std::nullopt,                true },
});

// clang-format on

[[nodiscard]] const ExportFormatInfo& infoOf(ExportFormat format);

/// What the user chooses before an export.
struct ExportSettings {
    ExportFormat format = ExportFormat::quickTime;
    render::Size size{1920, 1080};
    std::string quality = "standard"; ///< a name of render::kQualities
    int moments = 1;                  ///< of motion blur, 1 to DrawQuality::kMaxMoments
    bool wantsAlpha = false;          ///< has no effect if the format cannot have it
    LibraryPlace place;

    /// The settings of the last export. What is missing or not valid has its default.
    [[nodiscard]] static ExportSettings from(const foundation::UserDefaults& defaults);
    void keep(foundation::UserDefaults& defaults) const;

    [[nodiscard]] bool hasAlpha() const { return wantsAlpha && infoOf(format).canHaveAlpha; }

    /// Of the file; empty for a folder of pictures.
    [[nodiscard]] std::string_view ending() const;

    /// `stage` are the categories that an export with alpha leaves out.
    [[nodiscard]] MovieOptions options(std::uint32_t stage) const;
};

/// Whether a file can have this name. The error says what to do.
[[nodiscard]] foundation::Result<void> checkFileName(const std::string& name);

} // namespace zelvo::movie
