// SPDX-License-Identifier: MIT
#pragma once

#include "platform/archive/Archive.h"
#include "platform/foundation/Result.h"
#include "platform/usd/Limits.h"

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zelvo::usd {

[[nodiscard]] bool isArchive(std::span<const std::uint8_t> bytes);

/// The files of a package by their names: a ZIP archive in memory. Never looks outside of it.
class Archive {
public:
    /// The bytes must stay. Errors: `malformed`, `unsupported` (encrypted), `tooLarge`.
    [[nodiscard]] static foundation::Result<std::unique_ptr<Archive>>
    open(std::span<const std::uint8_t> bytes, const Limits& limits);

    /// In the order of the archive; without folders and without what a desktop adds for itself.
    [[nodiscard]] const std::vector<std::string>& names() const { return names_; }

    /// The file with this name, otherwise one that differs only in upper and lower case.
    [[nodiscard]] std::optional<std::size_t> find(std::string_view name) const;
    /// The first file with this name in any folder.
    [[nodiscard]] std::optional<std::size_t> findAnywhere(std::string_view fileName) const;

    /// Errors: `malformed`, `tooLarge`.
    [[nodiscard]] foundation::Result<std::vector<std::uint8_t>>
    read(std::size_t file, Budget& unpackedBytes) const;

private:
    explicit Archive(archive::Archive opened);

    archive::Archive packed;
    std::vector<archive::ArchivedFile> files; ///< of the names
    std::vector<std::string> names_;
    std::map<std::string, std::size_t, std::less<>> byName;
    std::map<std::string, std::size_t, std::less<>> byLowerCase;
    std::map<std::string, std::size_t, std::less<>> byFileName; ///< in lower case
};

} // namespace zelvo::usd
