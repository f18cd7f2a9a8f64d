// SPDX-License-Identifier: MIT
#include "ui/document/MediaCopies.h"

#include "document/StylePaths.h"
#include "platform/foundation/Files.h"
#include "ui/imports/ObjectCompanions.h"

#include <fmt/format.h>

#include <string>
#include <system_error>

namespace zelvo::ui {

namespace fs = std::filesystem;

namespace {

using foundation::Result;

/// A copy keeps the time of its original, so it can be told without reading both.
[[nodiscard]] bool isCopyOf(const fs::path& copy, const fs::path& original) {
    std::error_code error;
    const auto sizes = std::pair(fs::file_size(copy, error), fs::file_size(original, error));
    const auto times =
        std::pair(fs::last_write_time(copy, error), fs::last_write_time(original, error));
    return !error && sizes.first == sizes.second && times.first == times.second;
}

[[nodiscard]] Result<void> copyWithTime(const fs::path& from, const fs::path& to) {
    std::error_code ignored;
    fs::create_directories(to.parent_path(), ignored);
    return foundation::copyFile(from, to).map(
        [&] { fs::last_write_time(to, fs::last_write_time(from, ignored), ignored); });
}

/// A place that is free or has this file already.
[[nodiscard]] fs::path placeFor(const fs::path& file, const fs::path& folder) {
    fs::path place = folder / file.filename();
    std::error_code error;
    for (int number = 2; fs::exists(place, error) && !isCopyOf(place, file); ++number)
        place = folder /
                fmt::format("{} {}{}", file.stem().string(), number, file.extension().string());
    return place;
}

[[nodiscard]] Result<void> copyOne(std::string& path, const fs::path& folder) {
    const fs::path file = path;
    const auto parts = companionsOf(file);
    // What names its parts by their place needs a folder of its own.
    const fs::path home = parts.empty() ? folder : folder / file.stem();
    const fs::path place = placeFor(file, home);
    for (const fs::path& part : parts) {
        const fs::path to = home / part.lexically_relative(file.parent_path());
        if (isCopyOf(to, part))
            continue;
        if (auto copied = copyWithTime(part, to); !copied)
            return copied;
    }
    if (!isCopyOf(place, file)) {
        if (auto copied = copyWithTime(file, place); !copied)
            return copied;
    }
    path = place.string();
    return {};
}

} // namespace

Result<void> copyMedia(
    document::Style& style,
    const fs::path& folder,
    const std::function<bool(const fs::path&)>& isWanted) {
    Result<void> result;
    document::forEachPath(style, [&](std::string& path) {
        std::error_code error;
        const bool isThere = fs::is_regular_file(path, error);
        const bool liesThere = fs::path(path).parent_path() == folder;
        if (result && isThere && !liesThere && isWanted(path))
            result = copyOne(path, folder);
    });
    return result;
}

} // namespace zelvo::ui
