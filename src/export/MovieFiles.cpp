// SPDX-License-Identifier: MIT
#include "export/MovieFiles.h"

#include "platform/foundation/Check.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/file.h>

#include <cerrno>
#include <system_error>
#include <utility>

namespace zelvo::movie {

using foundation::TemporaryFolder;

namespace {

constexpr int kMaxNames = 100; ///< more windows than anybody opens

} // namespace

MovieFiles::MovieFiles(const foundation::Folders& folders)
    : folder(folders.documents / "Folder") {
    TemporaryFolder::removeLeftovers(folder);
}

foundation::Result<void> MovieFiles::makeWorkFolder(media::Container finished) {
    // A QuickTime file has no place for the alpha of VP9.
    rawName = finished == media::Container::webm ? "tmpMovie.webm" : "tmpMovie.mov";
    auto made = TemporaryFolder::make(folder);
    if (!made)
        return tl::unexpected(made.error());
    work.emplace(std::move(*made));
    return {};
}

std::filesystem::path MovieFiles::rawMovie() const {
    CHECK(work, "the raw movie is asked for before its folder is made");
    return work->path() / rawName;
}

void MovieFiles::deleteRawMovie() {
    work.reset();
}

void MovieFiles::keepRawMovie() {
    CHECK(work, "there is no raw movie to keep");
    work->keep();
}

std::filesystem::path MovieFiles::finishedMovie(media::Container container) const {
    if (!claim)
        claim = claimName();
    return claim->movie.string() + std::string(media::infoOf(container).ending);
}

void MovieFiles::deleteOtherMovies(media::Container kept) const {
    for (const auto& row : media::kContainers) {
        std::error_code ignored; // mostly there is none
        if (row.container != kept)
            std::filesystem::remove(finishedMovie(row.container), ignored);
    }
}

MovieFiles::Claim MovieFiles::claimName() const {
    std::error_code ignored;
    std::filesystem::create_directories(folder, ignored);
    for (int number = 1; number < kMaxNames; ++number) {
        const auto name = number == 1 ? "Movie" : fmt::format("Movie {}", number);
        // Of its own, as the movie is another file after each export.
        const auto lockFile = folder.parent_path() / fmt::format(".{}.mov.lock", name);
        constexpr int kFlags = O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC;
        foundation::Descriptor lock(open(lockFile.c_str(), kFlags, 0600));
        const bool isTaken = lock.isOpen() && flock(lock.get(), LOCK_EX | LOCK_NB) != 0 &&
                             errno == EWOULDBLOCK; // else the disk knows no locks
        if (!isTaken)
            return {folder / name, std::move(lock)};
    }
    return {folder / "Movie", foundation::Descriptor()};
}

} // namespace zelvo::movie
