// SPDX-License-Identifier: MIT
#include "platform/usd/Archive.h"

#include <zip.h>

#include <algorithm>
#include <array>

namespace zelvo::usd {

using foundation::Cause;
using foundation::fail;
using foundation::Result;

namespace {

// A text layer of a large model packs to about a twentieth.
constexpr std::uint64_t kBestRatio = 200;
constexpr std::uint64_t kSmall = 1U << 20U; ///< is unpacked at any ratio

std::string lowerCase(std::string_view text) {
    std::string result(text);
    for (char& c : result) {
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    }
    return result;
}

std::string_view fileNameIn(std::string_view path) {
    return path.substr(path.find_last_of('/') + 1);
}

bool isLeftOut(std::string_view name) {
    return name.empty() || name.ends_with('/') || name.starts_with("__MACOSX/") ||
           fileNameIn(name).starts_with("._");
}

/// Closes a file of the archive.
struct Closer {
    void operator()(zip_file_t* file) const { zip_fclose(file); }
};

} // namespace

bool isArchive(std::span<const std::uint8_t> bytes) {
    constexpr std::array<std::uint8_t, 4> kMagic{'P', 'K', 3, 4};
    return bytes.size() >= kMagic.size() && std::ranges::equal(bytes.first(kMagic.size()), kMagic);
}

Result<std::unique_ptr<Archive>>
Archive::open(std::span<const std::uint8_t> bytes, const Limits& limits) {
    zip_error_t error{};
    zip_source_t* source = zip_source_buffer_create(bytes.data(), bytes.size(), 0, &error);
    if (source == nullptr)
        return fail(Cause::malformed, "it is no archive");
    zip_t* handle = zip_open_from_source(source, ZIP_RDONLY, &error);
    if (handle == nullptr) {
        zip_source_free(source);
        return fail(Cause::malformed, "it is a damaged archive");
    }
    std::unique_ptr<Archive> archive(new Archive(handle));
    const auto count = static_cast<std::uint64_t>(zip_get_num_entries(handle, 0));
    if (count > limits.entries)
        return fail(Cause::tooLarge, "there are too many files in the archive");
    for (std::uint64_t i = 0; i < count; ++i) {
        const char* name = zip_get_name(handle, i, ZIP_FL_ENC_RAW);
        if (name == nullptr || isLeftOut(name))
            continue;
        const std::size_t file = archive->names_.size();
        archive->names_.emplace_back(name);
        archive->entries.push_back(i);
        archive->byName.try_emplace(name, file);
        archive->byLowerCase.try_emplace(lowerCase(name), file);
        archive->byFileName.try_emplace(lowerCase(fileNameIn(name)), file);
    }
    return archive;
}

Archive::~Archive() {
    zip_discard(handle);
}

std::optional<std::size_t> Archive::find(std::string_view name) const {
    if (const auto exact = byName.find(name); exact != byName.end())
        return exact->second;
    const auto similar = byLowerCase.find(lowerCase(name));
    return similar == byLowerCase.end() ? std::nullopt : std::optional(similar->second);
}

std::optional<std::size_t> Archive::findAnywhere(std::string_view fileName) const {
    const auto found = byFileName.find(lowerCase(fileNameIn(fileName)));
    return found == byFileName.end() ? std::nullopt : std::optional(found->second);
}

Result<std::vector<std::uint8_t>> Archive::read(std::size_t file, Budget& unpackedBytes) const {
    zip_stat_t about{};
    if (zip_stat_index(handle, entries[file], 0, &about) != 0)
        return fail(Cause::malformed, "it is damaged");
    if (about.encryption_method != ZIP_EM_NONE)
        return fail(Cause::unsupported, "it is encrypted");
    const bool isBomb = about.size > kSmall && about.size / kBestRatio > about.comp_size;
    if (isBomb || !unpackedBytes.take(about.size))
        return fail(Cause::tooLarge, "it is too large when unpacked");
    const std::unique_ptr<zip_file_t, Closer> opened(zip_fopen_index(handle, entries[file], 0));
    if (opened == nullptr)
        return fail(Cause::malformed, "it cannot be unpacked");
    std::vector<std::uint8_t> bytes(about.size);
    const auto count = zip_fread(opened.get(), bytes.data(), bytes.size());
    if (count < 0 || static_cast<std::uint64_t>(count) != about.size)
        return fail(Cause::malformed, "it is damaged");
    return bytes;
}

} // namespace zelvo::usd
