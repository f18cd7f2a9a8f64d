// SPDX-License-Identifier: MIT
#include "export/MovieFiles.h"

#include "platform/foundation/Check.h"

#include <system_error>
#include <utility>

namespace zelvo::movie {

using foundation::TemporaryFolder;

MovieFiles::MovieFiles(const foundation::Folders& folders)
    : folder(folders.documents / "Folder") {
    TemporaryFolder::removeLeftovers(folder);
}

foundation::Result<void> MovieFiles::makeWorkFolder() {
    auto made = TemporaryFolder::make(folder);
    if (!made)
        return tl::unexpected(made.error());
    work.emplace(std::move(*made));
    return {};
}

std::filesystem::path MovieFiles::rawMovie() const {
    CHECK(work, "the raw movie is asked for before its folder is made");
    return work->path() / "tmpMovie.mov";
}

void MovieFiles::deleteRawMovie() {
    work.reset();
}

void MovieFiles::keepRawMovie() {
    CHECK(work, "there is no raw movie to keep");
    work->keep();
}

std::filesystem::path MovieFiles::finishedMovie() const {
    std::error_code ignored;
    std::filesystem::create_directories(folder, ignored);
    return folder / "Movie.mov";
}

} // namespace zelvo::movie
