// SPDX-License-Identifier: MIT
#include "platform/foundation/NewFile.h"

#include "platform/foundation/Leftovers.h"
#include "platform/foundation/WritingError.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <random>
#include <system_error>

namespace zelvo::foundation {

namespace fs = std::filesystem;

namespace {

constexpr TemporaryNames kNames{".zelvo-", 16, ".part"};
constexpr mode_t kMode = 0666; ///< minus the user's umask
constexpr int kMaxLinks = 40;  ///< the system's own limit

/// A random name. Not from the seeded source of the animations, because that can be predicted.
std::string unguessableName() {
    std::random_device device;
    const std::uint64_t high = device();
    return fmt::format("{}{:016x}{}", kNames.prefix, high << 32U | device(), kNames.suffix);
}

/// The path at the end of a chain of links, even if nothing exists there.
Result<fs::path> endOfLinks(const fs::path& target) {
    fs::path place = target;
    std::error_code error;
    for (int links = 0; fs::is_symlink(fs::symlink_status(place, error)); ++links) {
        const auto next = fs::read_symlink(place, error);
        if (links == kMaxLinks || error)
            return tl::unexpected(writingError(links == kMaxLinks ? ELOOP : EACCES, target));
        place = place.parent_path() / next;
    }
    return place;
}

} // namespace

tl::unexpected<Error> NewFile::failed() const {
    return tl::unexpected(writingError(errno, target));
}

Result<NewFile> NewFile::inFolderOf(const fs::path& target, Use use) {
    NewFile made(target, use);
    if (auto checked = made.checkTarget(); !checked)
        return tl::unexpected(checked.error());
    const auto place = endOfLinks(target);
    if (!place)
        return tl::unexpected(place.error());
    const auto parent = place->parent_path();
    made.placeName = place->filename().string();
    made.folder =
        Descriptor(open(parent.empty() ? "." : parent.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    if (!made.folder.isOpen())
        return made.failed();
    return made;
}

/// Checks the target by the system's own rules for links, so that a link that the system would not
/// follow is refused.
Result<void> NewFile::checkTarget() const {
    struct stat state {};

    if (stat(target.c_str(), &state) != 0) {
        if (errno != ENOENT)
            return failed();
        return {};
    }
    if (S_ISDIR(state.st_mode))
        return tl::unexpected(writingError(EISDIR, target));
    if (!S_ISREG(state.st_mode)) {
        return fail(
            Cause::unwritable,
            target.string() + " is no regular file and is not replaced. Choose another name.");
    }
    if (access(target.c_str(), W_OK) != 0)
        return failed();
    return {};
}

Result<NewFile> NewFile::create(const fs::path& target, Use use) {
    auto made = inFolderOf(target, use);
    if (!made)
        return made;
    made->file = Descriptor(openat(made->folder.get(), ".", O_TMPFILE | O_RDWR | O_CLOEXEC, kMode));
    if (made->file.isOpen()) {
        (void)flock(made->file.get(), LOCK_EX);
        return made;
    }
    if (errno != EOPNOTSUPP && errno != EISDIR && errno != EINVAL)
        return made->failed();
    if (auto opened = made->openNamed(); !opened)
        return tl::unexpected(opened.error());
    return made;
}

Result<NewFile> NewFile::createNamed(const fs::path& target, Use use) {
    auto made = inFolderOf(target, use);
    if (!made)
        return made;
    if (auto opened = made->openNamed(); !opened)
        return tl::unexpected(opened.error());
    return made;
}

Result<void> NewFile::openNamed() {
    while (true) {
        auto name = unguessableName();
        constexpr int kExclusively = O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
        file = Descriptor(openat(folder.get(), name.c_str(), kExclusively, kMode));
        if (!file.isOpen())
            return failed();
        if (!lockAsOwner(file))
            continue;
        temporaryName = std::move(name);
        return {};
    }
}

Result<void> NewFile::check(const fs::path& target) {
    const auto made = create(target, Use::temporary);
    if (!made)
        return tl::unexpected(made.error());
    removeLeftovers(fmt::format("/proc/self/fd/{}", made->folder.get()), kNames);
    return {};
}

NewFile::~NewFile() {
    if (!temporaryName.empty())
        unlinkat(folder.get(), temporaryName.c_str(), 0);
}

fs::path NewFile::path() const {
    return fmt::format("/proc/self/fd/{}", file.get());
}

Result<void> NewFile::write(std::span<const std::byte> bytes) {
    while (!bytes.empty()) {
        const auto written = ::write(file.get(), bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR)
            return failed();
        bytes = bytes.subspan(static_cast<std::size_t>(std::max<ssize_t>(written, 0)));
    }
    return {};
}

Result<void> NewFile::commit(Placing placing) {
    if (auto checked = checkTarget(); !checked)
        return checked;
    const bool isLasting = use == Use::lasting;
    if (isLasting && fsync(file.get()) != 0)
        return failed();
    if (auto linked = link(); !linked)
        return linked;
    const char* const from = temporaryName.c_str();
    const unsigned flags = placing == Placing::onlyIfFree ? RENAME_NOREPLACE : 0;
    if (renameat2(folder.get(), from, folder.get(), placeName.c_str(), flags) != 0)
        return failed();
    temporaryName.clear();
    if (isLasting) {
        const Descriptor entries(openat(folder.get(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        (void)fsync(entries.get()); // not all disks can do this; the file is complete in any case
    }
    return {};
}

/// Gives the file a name beside its place; a rename then replaces what is there.
Result<void> NewFile::link() {
    if (!temporaryName.empty())
        return {};
    auto name = unguessableName();
    const auto from = path();
    if (linkat(AT_FDCWD, from.c_str(), folder.get(), name.c_str(), AT_SYMLINK_FOLLOW) != 0)
        return failed();
    temporaryName = std::move(name);
    return {};
}

} // namespace zelvo::foundation
