// SPDX-License-Identifier: MIT
#include "platform/foundation/TemporaryFolder.h"

#include "platform/foundation/Leftovers.h"
#include "platform/foundation/WritingError.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdlib>
#include <mutex>
#include <set>
#include <string>
#include <system_error>
#include <utility>

namespace zelvo::foundation {

namespace {

constexpr const char* kTemplate = "zelvo-run-XXXXXX";
constexpr TemporaryNames kNames{"zelvo-run-", 6, ""};
constexpr mode_t kKeptMode = 01700; ///< the sticky bit tells later processes to keep it

/// The folders of this process.
struct Standing {
    std::mutex mutex; // guards folders
    std::set<std::filesystem::path> folders;
};

Standing& standing() {
    static Standing all;
    return all;
}

} // namespace

Result<TemporaryFolder> TemporaryFolder::make(const std::filesystem::path& parent) {
    std::error_code ignored; // errors show when the folder is made
    std::filesystem::create_directories(parent, ignored);
    removeLeftovers(parent);
    while (true) {
        auto name = (parent / kTemplate).string();
        if (mkdtemp(name.data()) == nullptr)
            return tl::unexpected(writingError(errno, name).in("no temporary folder can be made"));
        Descriptor lock(open(name.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
        if (lock.isOpen() && lockAsOwner(lock))
            return TemporaryFolder(name, std::move(lock));
        if (!lock.isOpen() && errno != ENOENT)
            return tl::unexpected(writingError(errno, name));
    }
}

TemporaryFolder::TemporaryFolder(std::filesystem::path made, Descriptor lock)
    : folder(std::move(made))
    , owner(std::move(lock)) {
    const std::lock_guard guard(standing().mutex);
    standing().folders.insert(folder);
}

TemporaryFolder::TemporaryFolder(TemporaryFolder&& other) noexcept
    : folder(std::exchange(other.folder, {}))
    , owner(std::move(other.owner)) {}

TemporaryFolder::~TemporaryFolder() {
    if (folder.empty())
        return;
    removeUnlessKept(folder);
    const std::lock_guard guard(standing().mutex);
    standing().folders.erase(folder);
}

void TemporaryFolder::keep() {
    (void)chmod(folder.c_str(), kKeptMode);
}

void TemporaryFolder::removeLeftovers(const std::filesystem::path& parent) {
    foundation::removeLeftovers(parent, kNames);
}

void TemporaryFolder::removeAll() {
    const std::lock_guard guard(standing().mutex);
    for (const auto& folder : standing().folders) {
        // Renamed first, because running threads could make new files in it meanwhile.
        auto aside = (folder.parent_path() / kTemplate).string();
        std::error_code ignored;
        if (mkdtemp(aside.data()) != nullptr)
            std::filesystem::rename(folder, aside, ignored);
        removeUnlessKept(aside);
        removeUnlessKept(folder);
    }
}

} // namespace zelvo::foundation
