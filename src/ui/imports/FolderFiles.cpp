// SPDX-License-Identifier: MIT
#include "ui/imports/FolderFiles.h"

#include <fmt/format.h>

#include <algorithm>
#include <string>
#include <system_error>

namespace zelvo::ui {

namespace fs = std::filesystem;

using foundation::Cause;
using foundation::fail;

foundation::Result<std::vector<fs::path>>
filesBelow(const fs::path& folder, const FolderLimits& limits) {
    const std::string name = folder.filename().string();
    std::vector<fs::path> files;
    std::size_t entries = 0;
    std::uint64_t bytes = 0;
    std::error_code error;
    for (fs::recursive_directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        std::error_code ignored;
        const std::string own = entry->path().filename().string();
        const bool isHidden = own.starts_with('.') || own == "__MACOSX";
        if (entry->is_directory(ignored) && (isHidden || entry->is_symlink(ignored)))
            entry.disable_recursion_pending();
        if (++entries > limits.entries || entry.depth() >= limits.depth)
            return fail(Cause::tooLarge, fmt::format("{}: there is too much in it", name));
        if (isHidden || entry->is_symlink(ignored) || !entry->is_regular_file(ignored))
            continue;
        bytes += entry->file_size(ignored);
        files.push_back(entry->path());
        if (bytes > limits.bytes)
            return fail(Cause::tooLarge, fmt::format("{}: it is above two gigabytes", name));
    }
    if (error)
        return fail(Cause::unreadable, fmt::format("{}: {}", name, error.message()));
    std::ranges::sort(files);
    return files;
}

} // namespace zelvo::ui
