// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace zelvo::music {

/// How far a music folder is looked through, so that a link to a whole disk does no harm.
struct MusicFolderLimits {
    int depth = 32;
    std::size_t folders = 50'000;
    std::size_t songs = 200'000;
};

/// A song as the folder lists it.
struct SongFile {
    std::filesystem::path path;
    std::int64_t size = 0;    ///< bytes
    std::int64_t changed = 0; ///< nanoseconds since 1970
    bool isCloudItem = false; ///< a placeholder, whose content must be fetched first

    friend bool operator==(const SongFile&, const SongFile&) = default;
};

struct MusicFolderContents {
    std::vector<SongFile> songs;                   ///< sorted by path
    std::vector<std::filesystem::path> folders;    ///< with the one that was asked for
    std::vector<std::filesystem::path> unreadable; ///< folders that are there, but cannot be read
    bool isWhole = true;                           ///< false: a limit was reached
};

/// The songs in a folder and the folders in it. Hidden files and folders, and folders that cannot be
/// read, are left out. Links to folders are followed, each folder once.
///
/// A placeholder is a file with the suffix of a virtual file (".nextcloud", ".owncloud"), or one of
/// which the disk holds nothing. The second is not asked of file systems in user space: many of them do not
/// tell how much they hold.
[[nodiscard]] MusicFolderContents readMusicFolder(
    const std::filesystem::path& folder,
    const MusicFolderLimits& limits = {},
    const std::function<bool()>& isStopped = {});

/// The path without the suffix of a virtual file.
[[nodiscard]] std::filesystem::path withoutPlaceholderSuffix(const std::filesystem::path& file);

} // namespace zelvo::music
