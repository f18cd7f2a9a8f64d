// SPDX-License-Identifier: MIT
#include "export/MovieFiles.h"

#include <system_error>

namespace zelvo::movie {

std::filesystem::path MovieFiles::file(const char* name) const {
    std::error_code ignored;
    std::filesystem::create_directories(folder, ignored);
    return folder / name;
}

std::filesystem::path MovieFiles::rawMovie() const {
    return file("tmpMovie.mov");
}

std::filesystem::path MovieFiles::finishedMovie() const {
    return file("Movie.mov");
}

void MovieFiles::deleteRawMovie() const {
    std::error_code missing;
    std::filesystem::remove(rawMovie(), missing);
    std::filesystem::remove(file("tmpMovie.mp4"), missing);
}

} // namespace zelvo::movie
