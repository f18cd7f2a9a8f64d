// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Descriptor.h"
#include "platform/foundation/Result.h"

#include <filesystem>

namespace zelvo::foundation {

/// A folder of this process alone, which no other user can look into; gone with the object. What a
/// killed process has left goes when the next one makes or looks for its own.
class TemporaryFolder {
public:
    /// A new folder in the given one, which is made if need be. Errors: unwritable.
    [[nodiscard]] static Result<TemporaryFolder> make(const std::filesystem::path& parent);
    ~TemporaryFolder();

    TemporaryFolder(TemporaryFolder&& other) noexcept;
    TemporaryFolder& operator=(TemporaryFolder&&) = delete;

    [[nodiscard]] const std::filesystem::path& path() const { return folder; }

    /// Leaves the folder to the user, with what is in it.
    void keep();

    /// Removes the folders that killed processes have left in the given one.
    static void removeLeftovers(const std::filesystem::path& parent);

    /// Removes all folders of this process, for an end that runs no destructors. Any thread.
    static void removeAll();

private:
    TemporaryFolder(std::filesystem::path made, Descriptor lock);

    std::filesystem::path folder; ///< empty: moved on
    Descriptor owner;
};

} // namespace zelvo::foundation
