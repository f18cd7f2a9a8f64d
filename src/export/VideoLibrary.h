// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"

#include <filesystem>
#include <string>
#include <utility>

namespace zelvo::movie {

/// The photo library: the user's folder of videos.
class VideoLibrary {
public:
    explicit VideoLibrary(std::filesystem::path videos)
        : folder(std::move(videos)) {}

    struct Failure {
        bool isDenied = false; ///< nothing may be put into the folder at all
        std::string message;
    };

    /// Copies the movie into the folder under the first free name: "Zelvo Movie.mov", "Zelvo
    /// Movie 2.mov", … A copy that fails leaves nothing behind.
    [[nodiscard]] tl::expected<std::filesystem::path, Failure>
    save(const std::filesystem::path& movie) const;

    /// What the next copy would be called.
    [[nodiscard]] std::filesystem::path freePlace() const;

private:
    std::filesystem::path folder;
};

} // namespace zelvo::movie
