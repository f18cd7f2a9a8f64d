// SPDX-License-Identifier: MIT
#pragma once

#include "platform/music/SongTags.h"

#include <string>
#include <string_view>

namespace zelvo::music {

/// How zelvo-tags hands over what it has read: a line for each song, its fields between tabs. Texts of
/// SongTags hold neither.

/// The processor time that a song may take.
inline constexpr unsigned kMaxSongSeconds = 5;
/// No line is longer.
inline constexpr std::size_t kMaxLineBytes = 8 * SongTags::kMaxTextLength * 4;

[[nodiscard]] std::string lineOf(const SongTags& tags);
[[nodiscard]] std::string lineOf(const foundation::Error& error);

/// The line without its end. Errors: the one that was written; `malformed`.
[[nodiscard]] foundation::Result<SongTags> tagsOfLine(std::string_view line);

} // namespace zelvo::music
