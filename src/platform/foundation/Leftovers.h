// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Descriptor.h"

#include <cstddef>
#include <filesystem>
#include <string_view>

namespace zelvo::foundation {

/// How temporary things are named, so that they can be told from what belongs to the user: a
/// random part between two fixed ones.
struct TemporaryNames {
    std::string_view prefix;
    std::size_t randomLength = 0;
    std::string_view suffix;

    [[nodiscard]] bool match(std::string_view name) const;
};

/// Marks a temporary file or folder as in use. The lock goes with the process, however that ends.
/// False where another process has just removed it as a leftover, which can happen between its
/// making and its locking: make another.
[[nodiscard]] bool lockAsOwner(const Descriptor& made);

/// Removes the temporary things in the folder that no process has locked any more: it was killed.
/// Those of other users stay, and folders that are kept (TemporaryFolder::keep).
void removeLeftovers(const std::filesystem::path& folder, const TemporaryNames& names);

/// Removes a folder with all that is in it but folders that are kept. Links are not followed.
void removeUnlessKept(const std::filesystem::path& folder);

} // namespace zelvo::foundation
