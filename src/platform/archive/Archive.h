// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string_view>
#include <vector>

namespace zelvo::archive {

/// What an archive may ask for. All sizes in bytes.
struct Limits {
    std::uint64_t packed = std::uint64_t{512} << 20U;   ///< the archive's own size
    std::uint64_t unpacked = std::uint64_t{512} << 20U; ///< of all files together
    std::uint64_t file = std::uint64_t{128} << 20U;     ///< of one file
    std::size_t entries = 4096;                         ///< files and folders
    std::size_t depth = 16;                             ///< parts of a name
    /// How much a file may grow. Text and fonts grow up to ten times, a file of zeros a thousand
    /// times. Files under 1 MiB may grow as they like.
    double growth = 200;
};

/// A file in an archive.
struct ArchivedFile {
    std::filesystem::path path; ///< relative, without ".."
    std::uint64_t size = 0;     ///< bytes, unpacked
    std::uint64_t index = 0;    ///< among the archive's entries
};

/// A ZIP archive, opened for reading.
///
/// All entries are checked before the first one is unpacked: limits, names that lead outside of the
/// folder, links and devices, encryption. One such entry, and the archive is refused.
class Archive {
public:
    /// Errors: `notFound`, `unreadable`, `malformed`, `tooLarge`, `unsupported` (encrypted).
    [[nodiscard]] static foundation::Result<Archive>
    open(const std::filesystem::path& file, const Limits& limits = {});
    /// The same for an archive in memory. The bytes must outlive the archive.
    [[nodiscard]] static foundation::Result<Archive>
    openBytes(std::string_view bytes, const Limits& limits = {});

    Archive(Archive&& other) noexcept;
    Archive& operator=(Archive&&) = delete;
    ~Archive();

    [[nodiscard]] const std::vector<ArchivedFile>& files() const { return files_; }

    /// Errors: `malformed` (damaged, or not of the size that the archive states), `unsupported`.
    [[nodiscard]] foundation::Result<std::vector<std::uint8_t>>
    contentOf(const ArchivedFile& file) const;

    /// Writes all files below an existing folder, up to the first error. Each file is complete or
    /// not there. Of two files with one name, the first is kept. Errors: as `contentOf`, and
    /// `unwritable`.
    [[nodiscard]] foundation::Result<void> unpackInto(const std::filesystem::path& folder) const;

private:
    struct Handle;

    explicit Archive(std::unique_ptr<Handle> opened);

    [[nodiscard]] foundation::Result<void> readEntries(const Limits& limits);

    std::unique_ptr<Handle> handle;
    std::vector<ArchivedFile> files_;
};

} // namespace zelvo::archive
