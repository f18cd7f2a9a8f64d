// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"

#include <filesystem>
#include <utility>

namespace zelvo::app {

/// A folder of this process alone, gone with the object.
class TemporaryFolder {
public:
    /// A new folder in the given one, which is made if need be. Errors: unwritable.
    [[nodiscard]] static foundation::Result<TemporaryFolder>
    make(const std::filesystem::path& parent);
    ~TemporaryFolder();

    TemporaryFolder(TemporaryFolder&& other) noexcept
        : folder(std::exchange(other.folder, {})) {}

    TemporaryFolder& operator=(TemporaryFolder&&) = delete;

    [[nodiscard]] const std::filesystem::path& path() const { return folder; }

private:
    explicit TemporaryFolder(std::filesystem::path made)
        : folder(std::move(made)) {}

    std::filesystem::path folder;
};

} // namespace zelvo::app
