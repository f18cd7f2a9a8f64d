// SPDX-License-Identifier: MIT
#include "export/ExportSettings.h"

#include "export/PictureSizes.h"
#include "platform/foundation/UserDefaults.h"

#include <algorithm>

namespace zelvo::movie {

namespace {

constexpr const char* kFormat = "ExportFormat";
constexpr const char* kSize = "ExportSize";
constexpr const char* kQuality = "ExportQuality";
constexpr const char* kMoments = "ExportMotionBlur";
constexpr const char* kAlpha = "ExportAlpha";
constexpr const char* kFolder = "ExportFolder";
constexpr const char* kName = "ExportName";

[[nodiscard]] const render::NamedQuality* qualityNamed(std::string_view name) {
    const auto* const row =
        std::ranges::find(render::kQualities, name, &render::NamedQuality::name);
    return row == render::kQualities.end() ? nullptr : row;
}

} // namespace

const ExportFormatInfo& infoOf(ExportFormat format) {
    return *std::ranges::find(kExportFormats, format, &ExportFormatInfo::format);
}

ExportSettings ExportSettings::from(const foundation::UserDefaults& defaults) {
    ExportSettings kept;
    const auto key = defaults.string(kFormat);
    const auto* const format =
        std::ranges::find(kExportFormats, key.value_or(""), &ExportFormatInfo::key);
    if (format != kExportFormats.end())
        kept.format = format->format;
    kept.size = sizeFrom(defaults.string(kSize).value_or("")).value_or(kept.size);
    if (const auto quality = defaults.string(kQuality);
        quality && qualityNamed(*quality) != nullptr)
        kept.quality = *quality;
    const double moments = defaults.number(kMoments).value_or(kept.moments);
    if (moments >= 1 && moments <= render::DrawQuality::kMaxMoments)
        kept.moments = static_cast<int>(moments);
    kept.wantsAlpha = defaults.boolean(kAlpha).value_or(kept.wantsAlpha);
    kept.place.folder = defaults.string(kFolder).value_or("");
    if (const auto name = defaults.string(kName); name && checkFileName(*name))
        kept.place.name = *name;
    return kept;
}

void ExportSettings::keep(foundation::UserDefaults& defaults) const {
    defaults.set(kFormat, std::string(infoOf(format).key));
    defaults.set(kSize, sizeText(size));
    defaults.set(kQuality, quality);
    defaults.set(kMoments, static_cast<double>(moments));
    defaults.set(kAlpha, wantsAlpha);
    defaults.set(kFolder, place.folder.string());
    defaults.set(kName, place.name);
}

std::string_view ExportSettings::ending() const {
    const auto container = infoOf(format).container;
    return container ? media::infoOf(*container).ending : std::string_view{};
}

MovieOptions ExportSettings::options(std::uint32_t stage) const {
    MovieOptions made;
    made.renderSize = size;
    if (const auto* const row = qualityNamed(quality))
        made.quality = row->quality;
    made.quality.moments = moments;
    made.leftOut = hasAlpha() ? stage : 0;
    made.writesMovie = infoOf(format).container.has_value();
    made.container = infoOf(format).container.value_or(made.container);
    made.copyPlace = place;
    return made;
}

foundation::Result<void> checkFileName(const std::string& name) {
    constexpr std::size_t kMaxBytes = 200; // room for a number and an ending
    using foundation::Cause;
    if (name.find_first_not_of(' ') == std::string::npos)
        return foundation::fail(Cause::malformed, "Enter a name.");
    if (name.front() == '.' || name.find('/') != std::string::npos)
        return foundation::fail(
            Cause::malformed, "A name cannot begin with a dot, and has no slashes.");
    if (name.size() > kMaxBytes)
        return foundation::fail(Cause::malformed, "This name is too long.");
    return {};
}

} // namespace zelvo::movie
