// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Folders.h"
#include "platform/foundation/Result.h"
#include "platform/foundation/TemporaryFolder.h"

#include <filesystem>
#include <optional>

namespace zelvo::movie {

/// Where movies lie: the folder "Folder" below the documents, with the finished movie of the last
/// export. What is on the way there lies in a folder of this process alone, as two windows may
/// export at once.
class MovieFiles {
public:
    /// Clears away what killed processes have left.
    explicit MovieFiles(const foundation::Folders& folders);

    /// Before the raw movie of an export. Errors: unwritable.
    [[nodiscard]] foundation::Result<void> makeWorkFolder();
    [[nodiscard]] std::filesystem::path rawMovie() const; ///< without sound, during an export
    void deleteRawMovie();
    /// Leaves the raw movie to the user.
    void keepRawMovie();

    /// Makes its folder first; that it could not be made shows when the file is written.
    [[nodiscard]] std::filesystem::path finishedMovie() const;

private:
    std::filesystem::path folder;
    std::optional<foundation::TemporaryFolder> work; ///< absent between exports
};

} // namespace zelvo::movie
