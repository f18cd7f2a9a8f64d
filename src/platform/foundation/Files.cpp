// SPDX-License-Identifier: MIT
#include "platform/foundation/Files.h"

#include "platform/foundation/Console.h"
#include "platform/foundation/WritingError.h"

#include <fmt/format.h>

#include <fstream>
#include <system_error>
#include <utility>

namespace zelvo::foundation {

namespace fs = std::filesystem;

Result<void> copyFile(const fs::path& source, const fs::path& target, NewFile::Placing placing) {
    std::error_code error;
    if (fs::equivalent(source, target, error))
        return {};
    const bool isFile = fs::is_regular_file(source, error);
    if (!isFile || !std::ifstream(source)) {
        return fail(
            Cause::unreadable, source.filename().string() + ": it cannot be opened for reading");
    }
    (void)NewFile::check(target); // removes leftovers; errors show in the next line
    auto file = NewFile::create(target);
    if (!file)
        return tl::unexpected(file.error());
    fs::copy_file(source, file->path(), fs::copy_options::overwrite_existing, error);
    if (error)
        return tl::unexpected(writingError(error.value(), target));
    return file->commit(placing);
}

std::vector<std::string> visibleFilesIn(const fs::path& folder) {
    std::vector<std::string> names;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        std::string name = entry->path().filename().string();
        std::error_code ignored;
        if (!name.starts_with('.') && entry->is_regular_file(ignored))
            names.push_back(std::move(name));
    }
    if (error)
        logLine(fmt::format("{}: {}", folder.string(), error.message()));
    return names;
}

} // namespace zelvo::foundation
