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

fs::path VideoLibrary::freePlace(const LibraryPlace& wanted, std::string_view ending) const {
    const fs::path& in = wanted.folder.empty() ? folder : wanted.folder;
    fs::path place = in / fmt::format("{}{}", wanted.name, ending);
    std::error_code error;
    for (int number = 2; fs::exists(fs::symlink_status(place, error)); ++number)
        place = in / fmt::format("{} {}{}", wanted.name, number, ending);
    return place;
}

tl::expected<fs::path, VideoLibrary::Failure>
VideoLibrary::save(const fs::path& movie, const LibraryPlace& wanted) const {
    std::error_code error;
    fs::create_directories(wanted.folder.empty() ? folder : wanted.folder, error);
    if (error)
        return tl::unexpected(Failure{true, error.message()});

    while (true) {
        const fs::path place = freePlace(wanted, movie.extension().string());
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
