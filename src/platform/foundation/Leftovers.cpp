// SPDX-License-Identifier: MIT
#include "platform/foundation/Leftovers.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <system_error>
#include <vector>

namespace zelvo::foundation {

namespace fs = std::filesystem;

namespace {

/// The paths in a folder; empty if it cannot be read.
std::vector<fs::path> entriesOf(const fs::path& folder) {
    std::vector<fs::path> entries;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error); !error && entry != fs::directory_iterator();
         entry.increment(error))
        entries.push_back(entry->path());
    return entries;
}

bool isOurs(const struct stat& state) {
    return state.st_uid == geteuid() && (S_ISREG(state.st_mode) || S_ISDIR(state.st_mode));
}

bool isKept(const fs::path& folder) {
    std::error_code error;
    const auto permissions = fs::status(folder, error).permissions();
    return !error && (permissions & fs::perms::sticky_bit) != fs::perms::none;
}

} // namespace

bool TemporaryNames::match(std::string_view name) const {
    return name.size() == prefix.size() + randomLength + suffix.size() &&
           name.starts_with(prefix) && name.ends_with(suffix);
}

bool lockAsOwner(const Descriptor& made) {
    // On a disk without locks nobody gets one, and nothing is removed.
    (void)flock(made.get(), LOCK_EX);

    struct stat state {};

    return fstat(made.get(), &state) != 0 || state.st_nlink > 0;
}

void removeLeftovers(const fs::path& folder, const TemporaryNames& names) {
    for (const auto& path : entriesOf(folder)) {
        if (!names.match(path.filename().string()))
            continue;
        const Descriptor found(open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));

        struct stat state {};

        if (!found.isOpen() || fstat(found.get(), &state) != 0 || !isOurs(state))
            continue;
        if (flock(found.get(), LOCK_EX | LOCK_NB) == 0)
            removeUnlessKept(path);
    }
}

void removeUnlessKept(const fs::path& folder) {
    std::error_code ignored;
    if (fs::is_directory(fs::symlink_status(folder, ignored))) {
        if (isKept(folder))
            return;
        for (const auto& entry : entriesOf(folder))
            removeUnlessKept(entry);
    }
    fs::remove(folder, ignored);
}

} // namespace zelvo::foundation
