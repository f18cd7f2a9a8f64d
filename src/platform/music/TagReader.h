// SPDX-License-Identifier: MIT
#pragma once

#include "platform/music/SongTags.h"

#include <functional>
#include <span>

namespace zelvo::music {

/// Asked while files are read, on the same thread: whether nobody waits for it any more. May be
/// empty.
using IsStopped = std::function<bool()>;

/// Reads tags with a helper program, zelvo-tags, so that a hostile file can neither hang nor end this
/// process. Takes a few milliseconds to begin, so hand in many files at once.
///
/// One result for each file, in their order. Errors of a file: those of readSongTags; `tooLarge`: it
/// takes too much time or memory. Errors of all: `cancelled`; `unavailable`: the helper is missing.
/// Any thread.
[[nodiscard]] foundation::Result<std::vector<foundation::Result<SongTags>>>
readTags(std::span<const std::filesystem::path> files, const IsStopped& isStopped = {});

/// The same for the cover of a song.
[[nodiscard]] foundation::Result<std::vector<std::uint8_t>>
readCover(const std::filesystem::path& file, const IsStopped& isStopped = {});

} // namespace zelvo::music
