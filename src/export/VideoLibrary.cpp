// SPDX-License-Identifier: MIT
#include "export/VideoLibrary.h"

#include <fmt/format.h>

#include <fstream>
#include <system_error>

namespace zelvo::movie {

namespace fs = std::filesystem;

fs::path VideoLibrary::freePlace() const {
    fs::path place = folder / "Zelvo Movie.mov";
    std::error_code error;
    for (int number = 2; fs::exists(place, error); ++number) {
        place = folder / fmt::format("Zelvo Movie {}.mov", number);
    }
    return place;
}

tl::expected<fs::path, VideoLibrary::Failure> VideoLibrary::save(const fs::path& movie) const {
    std::error_code error;
    fs::create_directories(folder, error);
    if (error)
        return tl::unexpected(Failure{true, error.message()});

    const fs::path place = freePlace();
    const fs::path part = place.string() + ".part";
    if (!std::ofstream(part)) {
        return tl::unexpected(Failure{true, fmt::format("{} cannot be written", folder.string())});
    }
    fs::copy_file(movie, part, fs::copy_options::overwrite_existing, error);
    if (!error)
        fs::rename(part, place, error);
    if (!error)
        return place;
    std::error_code ignored;
    fs::remove(part, ignored);
    return tl::unexpected(Failure{
        false,
        fmt::format(
            "The movie could not be copied to {} ({}). It is still at {}.",
            folder.string(),
            error.message(),
            movie.string())});
}

} // namespace zelvo::movie
