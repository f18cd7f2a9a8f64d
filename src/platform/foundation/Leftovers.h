// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Descriptor.h"

#include <cstddef>
#include <filesystem>
#include <string_view>

namespace zelvo::foundation {

/// The form of temporary names: a random part between a prefix and a suffix. It tells temporary
/// files from the user's files.
struct TemporaryNames {
    std::string_view prefix;
    std::size_t randomLength = 0;
    std::string_view suffix;

    [[nodiscard]] bool match(std::string_view name) const;
};

/// Marks a temporary file or folder as in use. The lock ends with the process. False if another
/// process has removed it as a leftover between creation and locking; then make another one.
[[nodiscard]] bool lockAsOwner(const Descriptor& made);

/// Removes temporary files and folders that no process has locked any more, because the process was
/// killed. Those of other users and kept folders (TemporaryFolder::keep) stay.
void removeLeftovers(const std::filesystem::path& folder, const TemporaryNames& names);

/// Removes a folder with its content, except kept folders. Does not follow links.
void removeUnlessKept(const std::filesystem::path& folder);

} // namespace zelvo::foundation
