// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Descriptor.h"
#include "platform/foundation/Result.h"

#include <cstddef>
#include <filesystem>
#include <span>
#include <string>

namespace zelvo::foundation {

/// A file that comes to its place whole or not at all; what stood there before stands until then.
///
/// While it is written it has no name, so that nothing is left of it if the process is killed and
/// nobody can guess where it lies. On disks that know no such files it has a random name beside
/// its place, which the next check of that folder clears away.
///
/// A symbolic link is followed, and what is no regular file is not replaced.
class NewFile {
public:
    enum class Use {
        lasting,   ///< is on the disk, not only on its way there, before it takes its place
        temporary, ///< need not outlive a power failure
    };
    enum class Placing { replacing, onlyIfFree };

    /// Errors: unwritable.
    [[nodiscard]] static Result<NewFile>
    create(const std::filesystem::path& target, Use use = Use::lasting);
    /// As on a disk that knows no files without a name.
    [[nodiscard]] static Result<NewFile>
    createNamed(const std::filesystem::path& target, Use use = Use::lasting);

    /// Whether a file could be put there, to be asked before the work on it begins. Clears away
    /// what killed processes have left in the folder.
    [[nodiscard]] static Result<void> check(const std::filesystem::path& target);

    NewFile(NewFile&&) noexcept = default;
    NewFile& operator=(NewFile&&) = delete;
    ~NewFile();

    /// Opens this same file, for libraries that open by name.
    [[nodiscard]] std::filesystem::path path() const;

    [[nodiscard]] Result<void> write(std::span<const std::byte> bytes);

    /// Puts it into its place. Without this it is gone with the object.
    [[nodiscard]] Result<void> commit(Placing placing = Placing::replacing);

private:
    NewFile(std::filesystem::path wanted, Use purpose)
        : target(std::move(wanted))
        , use(purpose) {}

    [[nodiscard]] static Result<NewFile> inFolderOf(const std::filesystem::path& target, Use use);
    [[nodiscard]] Result<void> checkTarget() const;
    [[nodiscard]] Result<void> openNamed();
    [[nodiscard]] Result<void> link();
    [[nodiscard]] tl::unexpected<Error> failed() const;

    std::filesystem::path target; ///< as it was asked for
    Use use;
    Descriptor folder;
    std::string placeName; ///< in the folder
    Descriptor file;
    std::string temporaryName; ///< in the folder; empty: none
};

} // namespace zelvo::foundation
