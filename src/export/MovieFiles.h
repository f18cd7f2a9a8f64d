// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Descriptor.h"
#include "platform/foundation/Folders.h"
#include "platform/foundation/Result.h"
#include "platform/foundation/TemporaryFolder.h"
#include "platform/media/Container.h"

#include <filesystem>
#include <optional>
#include <string>

namespace zelvo::movie {

/// The files of exports: the finished movie of the last export is in the folder "Folder" in the
/// documents. Intermediate files are in a private folder of this process, because two windows may
/// export at the same time.
class MovieFiles {
public:
    /// Also removes what killed processes have left.
    explicit MovieFiles(const foundation::Folders& folders);

    /// Call it before the raw movie of an export is made. Error: `unwritable`.
    [[nodiscard]] foundation::Result<void> makeWorkFolder(media::Container finished);
    /// the movie without sound, during an export
    [[nodiscard]] std::filesystem::path rawMovie() const;
    void deleteRawMovie();
    /// Leaves the raw movie to the user.
    void keepRawMovie();

    /// "Movie.mov" (with the ending of its container), or "Movie 2.mov" and so on while another process uses that name, so that two
    /// exports that end at the same moment do not share a file. The first call claims the name for
    /// the lifetime of this object and makes the folder. If that fails, writing the file returns the
    /// error.
    [[nodiscard]] std::filesystem::path finishedMovie(media::Container container) const;
    /// Deletes finished movies of other kinds, so that only the last export's is kept.
    void deleteOtherMovies(media::Container kept) const;

private:
    struct Claim {
        std::filesystem::path movie; ///< without ending
        foundation::Descriptor lock;
    };

    [[nodiscard]] Claim claimName() const;

    std::filesystem::path folder;
    mutable std::optional<Claim> claim;              ///< empty before the first call
    std::optional<foundation::TemporaryFolder> work; ///< empty between exports
    std::string rawName;
};

} // namespace zelvo::movie
