// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Folders.h"

#include <filesystem>

namespace zelvo::movie {

/// Where movies lie: the folder "Folder" below the documents. Every look-up makes the folder first;
/// that it could not be made shows when the file is written.
class MovieFiles {
public:
    explicit MovieFiles(const foundation::Folders& folders)
        : folder(folders.documents / "Folder") {}

    [[nodiscard]] std::filesystem::path rawMovie() const;      ///< without sound, during an export
    [[nodiscard]] std::filesystem::path finishedMovie() const; ///< of the last export

    void deleteRawMovie() const;

private:
    [[nodiscard]] std::filesystem::path file(const char* name) const;

    std::filesystem::path folder;
};

} // namespace zelvo::movie
