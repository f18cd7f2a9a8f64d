// SPDX-License-Identifier: MIT
#include "export/VideoLibrary.h"

#include "platform/foundation/NewFile.h"
#include "platform/foundation/WritingError.h"

#include <fmt/format.h>

#include <system_error>

namespace zelvo::movie {

namespace fs = std::filesystem;

namespace {

foundation::Result<void>
copy(const fs::path& movie, foundation::NewFile& file, const fs::path& place) {
    std::error_code error;
    fs::copy_file(movie, file.path(), fs::copy_options::overwrite_existing, error);
    if (error)
        return tl::unexpected(foundation::writingError(error.value(), place));
    return file.commit(foundation::NewFile::Placing::onlyIfFree);
}

} // namespace

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

    while (true) {
        const fs::path place = freePlace();
        auto file = foundation::NewFile::create(place);
        if (!file)
            return tl::unexpected(Failure{true, file.error().message});
        const auto copied = copy(movie, *file, place);
        if (copied)
            return place;
        if (fs::exists(place, error))
            continue; // another program has just taken the name
        return tl::unexpected(Failure{
            false,
            fmt::format("{} The movie is still at {}.", copied.error().message, movie.string())});
    }
}

} // namespace zelvo::movie
