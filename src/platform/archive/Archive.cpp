// SPDX-License-Identifier: MIT
#include "platform/archive/Archive.h"

#include "platform/archive/EntryName.h"
#include "platform/foundation/NewFile.h"

#include <fmt/format.h>
#include <sys/stat.h>
#include <zip.h>

#include <algorithm>
#include <span>
#include <system_error>
#include <utility>

namespace zelvo::archive {

namespace fs = std::filesystem;
using foundation::Cause;
using foundation::Result;

namespace {

constexpr std::uint64_t kAlwaysAllowed = std::uint64_t{1} << 20U; ///< bytes, whatever the growth
constexpr std::size_t kBlock = std::size_t{64} << 10U;            ///< bytes read at once

struct FileCloser {
    void operator()(zip_file_t* file) const { zip_fclose(file); }
};

std::string mebibytes(std::uint64_t bytes) {
    return fmt::format("{} MiB", bytes >> 20U);
}

/// Errors of the library, as far as a user can do something about them.
foundation::Error openingError(zip_error_t& error) {
    const bool isNoArchive =
        zip_error_code_zip(&error) == ZIP_ER_NOZIP || zip_error_code_zip(&error) == ZIP_ER_INCONS;
    std::string message = isNoArchive
                              ? "is no ZIP archive, or is damaged; use another copy of it"
                              : fmt::format("cannot be read: {}", zip_error_strerror(&error));
    zip_error_fini(&error);
    return {isNoArchive ? Cause::malformed : Cause::unreadable, std::move(message)};
}

/// Entries of Unix archives have a file type. 0: none is given.
mode_t fileType(zip_t* archive, zip_uint64_t index) {
    zip_uint8_t system = 0;
    zip_uint32_t attributes = 0;
    if (zip_file_get_external_attributes(archive, index, 0, &system, &attributes) != 0)
        return 0;
    constexpr unsigned kModeShift = 16;
    return system == ZIP_OPSYS_UNIX ? (attributes >> kModeShift) & S_IFMT : 0;
}

Result<void> checkKind(zip_t* archive, const zip_stat_t& entry) {
    if ((entry.valid & ZIP_STAT_ENCRYPTION_METHOD) != 0 && entry.encryption_method != ZIP_EM_NONE) {
        return foundation::fail(
            Cause::unsupported, "is encrypted; unpack it with its password first");
    }
    const mode_t type = fileType(archive, entry.index);
    if (type == S_IFLNK)
        return foundation::fail(Cause::malformed, fmt::format("holds a link ({})", entry.name));
    if (type != 0 && type != S_IFREG && type != S_IFDIR) {
        return foundation::fail(
            Cause::malformed, fmt::format("holds something that is no file ({})", entry.name));
    }
    return {};
}

Result<void> checkSize(const zip_stat_t& entry, const Limits& limits) {
    if (entry.size > limits.file) {
        return foundation::fail(
            Cause::tooLarge,
            fmt::format("holds a file of more than {} ({})", mebibytes(limits.file), entry.name));
    }
    const auto packed = static_cast<double>(std::max<zip_uint64_t>(entry.comp_size, 1));
    if (entry.size > kAlwaysAllowed && static_cast<double>(entry.size) > packed * limits.growth) {
        return foundation::fail(
            Cause::tooLarge,
            fmt::format(
                "holds a file that grows more than {:.0f} times ({}), as if made to fill the disk",
                limits.growth,
                entry.name));
    }
    return {};
}

Result<zip_stat_t> entryAt(zip_t* archive, zip_uint64_t index) {
    constexpr zip_uint64_t kNeeded = ZIP_STAT_NAME | ZIP_STAT_SIZE | ZIP_STAT_COMP_SIZE;
    zip_stat_t entry;
    if (zip_stat_index(archive, index, ZIP_FL_ENC_GUESS, &entry) != 0 ||
        (entry.valid & kNeeded) != kNeeded)
        return foundation::fail(Cause::malformed, "is damaged; use another copy of it");
    return entry;
}

bool isFolder(const std::string& name) {
    return name.ends_with('/') || name.ends_with('\\');
}

} // namespace

struct Archive::Handle {
    zip_t* zip = nullptr;

    Handle() = default;
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    ~Handle() {
        if (zip != nullptr)
            zip_discard(zip);
    }
};

Archive::Archive(std::unique_ptr<Handle> opened)
    : handle(std::move(opened)) {}

Archive::Archive(Archive&&) noexcept = default;
Archive::~Archive() = default;

Result<Archive> Archive::open(const fs::path& file, const Limits& limits) {
    std::error_code error;
    if (!fs::is_regular_file(file, error))
        return foundation::fail(Cause::notFound, "is no file");
    if (fs::file_size(file, error) > limits.packed) {
        return foundation::fail(
            Cause::tooLarge, fmt::format("is larger than {}", mebibytes(limits.packed)));
    }
    auto opened = std::make_unique<Handle>();
    int code = 0;
    opened->zip = zip_open(file.c_str(), ZIP_RDONLY, &code);
    if (opened->zip == nullptr) {
        zip_error_t why;
        zip_error_init_with_code(&why, code);
        return tl::unexpected(openingError(why));
    }
    Archive made(std::move(opened));
    return made.readEntries(limits).map([&made] { return std::move(made); });
}

Result<Archive> Archive::openBytes(std::string_view bytes, const Limits& limits) {
    auto opened = std::make_unique<Handle>();
    zip_error_t why;
    zip_error_init(&why);
    zip_source_t* const source = zip_source_buffer_create(bytes.data(), bytes.size(), 0, &why);
    opened->zip = source == nullptr ? nullptr : zip_open_from_source(source, ZIP_RDONLY, &why);
    if (opened->zip == nullptr) {
        zip_source_free(source);
        return tl::unexpected(openingError(why));
    }
    Archive made(std::move(opened));
    return made.readEntries(limits).map([&made] { return std::move(made); });
}

Result<void> Archive::readEntries(const Limits& limits) {
    const auto count = static_cast<std::uint64_t>(zip_get_num_entries(handle->zip, 0));
    if (count > limits.entries) {
        return foundation::fail(
            Cause::tooLarge, fmt::format("holds more than {} files", limits.entries));
    }
    std::uint64_t total = 0;
    for (std::uint64_t index = 0; index < count; ++index) {
        const auto entry = entryAt(handle->zip, index);
        if (!entry)
            return tl::unexpected(entry.error());
        auto path = entryPath(entry->name, limits.depth);
        if (!path)
            return tl::unexpected(path.error());
        auto checked =
            checkKind(handle->zip, *entry).and_then([&] { return checkSize(*entry, limits); });
        if (!checked)
            return checked;
        total += entry->size;
        if (total > limits.unpacked) {
            return foundation::fail(
                Cause::tooLarge,
                fmt::format("unpacks to more than {}", mebibytes(limits.unpacked)));
        }
        if (!isFolder(entry->name))
            files_.push_back({*std::move(path), entry->size, index});
    }
    return {};
}

Result<std::vector<std::uint8_t>> Archive::contentOf(const ArchivedFile& file) const {
    const auto failed = [&file](const char* why) {
        return tl::unexpected(foundation::Error{Cause::malformed, why}.in(file.path.string()));
    };
    const std::unique_ptr<zip_file_t, FileCloser> opened(
        zip_fopen_index(handle->zip, file.index, 0));
    if (!opened)
        return failed("is packed in a way that is not known here");
    // The stated size is only a claim, but within the limits.
    std::vector<std::uint8_t> content;
    content.reserve(file.size + kBlock);
    while (true) {
        const std::size_t before = content.size();
        content.resize(before + kBlock);
        const auto got = zip_fread(opened.get(), content.data() + before, kBlock);
        if (got < 0)
            return failed("is damaged");
        content.resize(before + static_cast<std::size_t>(got));
        if (content.size() > file.size || (got == 0 && content.size() < file.size))
            return failed("has another size than the archive states");
        if (got == 0)
            return content;
    }
}

Result<void> Archive::unpackInto(const fs::path& folder) const {
    using foundation::NewFile;
    for (const ArchivedFile& file : files_) {
        const fs::path target = folder / file.path;
        std::error_code ignored; // shows when the file is written
        fs::create_directories(target.parent_path(), ignored);
        if (fs::exists(target, ignored))
            continue;
        const auto content = contentOf(file);
        if (!content)
            return tl::unexpected(content.error());
        auto made = NewFile::create(target, NewFile::Use::temporary);
        if (!made)
            return tl::unexpected(made.error());
        auto written = made->write(std::as_bytes(std::span(*content))).and_then([&made] {
            return made->commit();
        });
        if (!written)
            return written;
    }
    return {};
}

} // namespace zelvo::archive
