// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Descriptor.h"
#include "platform/foundation/Result.h"

#include <cstddef>
#include <filesystem>
#include <span>
#include <string>

namespace zelvo::foundation {

/// Writes a file that appears complete or not at all. Until then, an old file stays in its place.
///
/// While it is written the file has no name. So nothing is left if the process is killed, and
/// nobody can guess its path. On disks without support for this it has a random name in the target
/// folder; the next `check` of that folder removes it if it is left over.
///
/// Symbolic links are followed. A target that is not a regular file is not replaced.
class NewFile {
public:
    enum class Use {
        lasting,   ///< is flushed to the disk before it is put in place
        temporary, ///< may be lost in a power failure
    };
    enum class Placing { replacing, onlyIfFree };

    /// Error: `unwritable`.
    [[nodiscard]] static Result<NewFile>
    create(const std::filesystem::path& target, Use use = Use::lasting);
    /// The variant for disks that do not support files without a name.
    [[nodiscard]] static Result<NewFile>
    createNamed(const std::filesystem::path& target, Use use = Use::lasting);

    /// Tests whether the file could be written; call it before long work. Also removes leftovers of
    /// killed processes from the folder.
    [[nodiscard]] static Result<void> check(const std::filesystem::path& target);

    NewFile(NewFile&&) noexcept = default;
    NewFile& operator=(NewFile&&) = delete;
    ~NewFile();

    /// A path that opens this file, for libraries that need a path.
    [[nodiscard]] std::filesystem::path path() const;

    [[nodiscard]] Result<void> write(std::span<const std::byte> bytes);

    /// Puts the file in place. Without this it is deleted with the object.
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

    std::filesystem::path target; ///< as given by the caller
    Use use;
    Descriptor folder;
    std::string placeName; ///< file name in the folder
    Descriptor file;
    std::string temporaryName; ///< file name in the folder; empty: none
};

} // namespace zelvo::foundation
