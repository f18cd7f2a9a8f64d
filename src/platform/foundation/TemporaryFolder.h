// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Descriptor.h"
#include "platform/foundation/Result.h"

#include <filesystem>

namespace zelvo::foundation {

/// A private folder of this process, deleted with the object. Leftovers of killed processes are
/// removed when another process calls `make` or `removeLeftovers`.
class TemporaryFolder {
public:
    /// Makes a new folder in `parent`, which is created if needed. Error: `unwritable`.
    [[nodiscard]] static Result<TemporaryFolder> make(const std::filesystem::path& parent);
    ~TemporaryFolder();

    TemporaryFolder(TemporaryFolder&& other) noexcept;
    TemporaryFolder& operator=(TemporaryFolder&&) = delete;

    [[nodiscard]] const std::filesystem::path& path() const { return folder; }

    /// Leaves the folder and its content to the user.
    void keep();

    /// Removes folders in `parent` that killed processes have left.
    static void removeLeftovers(const std::filesystem::path& parent);

    /// Removes all folders of this process, for an exit without destructors. Any thread.
    static void removeAll();

private:
    TemporaryFolder(std::filesystem::path made, Descriptor lock);

    std::filesystem::path folder; ///< empty after a move
    Descriptor owner;
};

} // namespace zelvo::foundation
