// SPDX-License-Identifier: MIT
#pragma once

#include "export/MovieOptions.h"
#include "platform/foundation/Result.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <utility>

namespace zelvo::movie {

/// The photo library: the user's videos folder.
class VideoLibrary {
public:
    explicit VideoLibrary(std::filesystem::path videos)
        : folder(std::move(videos)) {}

    struct Failure {
        bool isDenied = false; ///< the folder cannot be written at all
        std::string message;
    };

    /// Copies the movie into the wanted folder, under the first free name: "Zelvo Movie.mov",
    /// "Zelvo Movie 2.mov", … A failed copy leaves nothing behind.
    [[nodiscard]] tl::expected<std::filesystem::path, Failure>
    save(const std::filesystem::path& movie, const LibraryPlace& wanted) const;

    /// The path of the next copy. `ending` is that of the file name, with its dot.
    [[nodiscard]] std::filesystem::path
    freePlace(const LibraryPlace& wanted, std::string_view ending) const;

private:
    std::filesystem::path folder;
};

} // namespace zelvo::movie
