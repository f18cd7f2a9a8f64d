// SPDX-License-Identifier: MIT
#pragma once

#include "platform/music/MusicIndex.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zelvo::music {

/// The albums under one letter.
struct AlbumSection {
    std::string title; ///< the letter; "#" for all that begin otherwise
    std::size_t location = 0;
    std::size_t length = 0;

    friend bool operator==(const AlbumSection&, const AlbumSection&) = default;
};

/// Albums in the order of a list for the user, by the rules of the user's language; articles count
/// ("The …" is under T). The section "#" is the last.
struct AlbumList {
    std::vector<MusicAlbum> albums;
    std::vector<AlbumSection> sections;

    /// Any thread.
    [[nodiscard]] static AlbumList arrange(std::vector<MusicAlbum> albums);

    /// For typing: the first album whose title begins with the text; accents and case do not count.
    [[nodiscard]] std::optional<std::size_t> find(std::string_view start) const;
    /// The section that holds the row.
    [[nodiscard]] std::size_t sectionOf(std::size_t row) const;
};

} // namespace zelvo::music
