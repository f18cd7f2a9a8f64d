// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace zelvo::music {

/// What a sound file tells about itself. Texts are UTF-8 on one line, without control characters, and
/// at most kMaxTextLength characters long; empty: the file does not tell.
struct SongTags {
    static constexpr std::size_t kMaxTextLength = 256;

    std::string title;
    std::string album;
    std::string albumArtist; ///< of the whole album; empty on many albums with one artist
    std::string artist;
    int track = 0;       ///< 0: unknown
    int disc = 0;        ///< 0: unknown
    double duration = 0; ///< seconds; 0: unknown
    bool hasCover = false;
    bool isProtected = false; ///< its sound is encrypted

    friend bool operator==(const SongTags&, const SongTags&) = default;
};

/// A picture above this is no cover for us.
inline constexpr std::size_t kMaxCoverBytes = 16U << 20U;

/// Whether the name is that of a song: mp3, m4a, m4b, m4p, aac, flac, ogg, oga, opus, wav, aif, aiff,
/// aifc.
[[nodiscard]] bool isSong(const std::filesystem::path& file);

/// Reads a song's tags. Pictures are not read if they are too large. Errors: `unreadable`;
/// `malformed`: it is no sound.
///
/// A hostile file can take very long, or all memory: use TagReader, which does this in another
/// process.
[[nodiscard]] foundation::Result<SongTags> readSongTags(const std::filesystem::path& file);
/// The same for a file without a telling name of its own.
[[nodiscard]] foundation::Result<SongTags>
readSongTags(const std::filesystem::path& file, const std::filesystem::path& name);

/// The bytes of the picture in a song: the front cover, else the first one. Errors: as above;
/// `notFound`: it has none.
[[nodiscard]] foundation::Result<std::vector<std::uint8_t>>
readSongCover(const std::filesystem::path& file);

} // namespace zelvo::music
