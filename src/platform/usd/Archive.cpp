// SPDX-License-Identifier: MIT
#include "platform/usd/Archive.h"

#include <algorithm>
#include <array>
#include <utility>

namespace zelvo::usd {

using foundation::Cause;
using foundation::fail;
using foundation::Result;

namespace {

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
    return name.starts_with("__MACOSX/") || fileNameIn(name).starts_with("._");
}

} // namespace

bool isArchive(std::span<const std::uint8_t> bytes) {
    constexpr std::array<std::uint8_t, 4> kMagic{'P', 'K', 3, 4};
    return bytes.size() >= kMagic.size() && std::ranges::equal(bytes.first(kMagic.size()), kMagic);
}

Result<std::unique_ptr<Archive>>
Archive::open(std::span<const std::uint8_t> bytes, const Limits& limits) {
    auto opened = archive::Archive::openBytes(
        {reinterpret_cast<const char*>(bytes.data()), bytes.size()},
        {.unpacked = limits.unpackedBytes,
         .file = limits.unpackedBytes,
         .entries = limits.entries});
    if (!opened) {
        const foundation::Error& error = opened.error();
        return error.cause == Cause::malformed ? fail(Cause::malformed, "it is a damaged archive")
                                               : fail(error.cause, "it " + error.message);
    }
    return std::unique_ptr<Archive>(new Archive(*std::move(opened)));
}

Archive::Archive(archive::Archive opened)
    : packed(std::move(opened)) {
    for (const archive::ArchivedFile& entry : packed.files()) {
        std::string name = entry.path.string();
        if (isLeftOut(name))
            continue;
        const std::size_t file = names_.size();
        byName.try_emplace(name, file);
        byLowerCase.try_emplace(lowerCase(name), file);
        byFileName.try_emplace(lowerCase(fileNameIn(name)), file);
        names_.push_back(std::move(name));
        files.push_back(entry);
    }
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
    if (!unpackedBytes.take(files[file].size))
        return fail(Cause::tooLarge, "it is too large when unpacked");
    return packed.contentOf(files[file]);
}

} // namespace zelvo::usd
