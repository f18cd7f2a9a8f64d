// SPDX-License-Identifier: MIT
#include "platform/music/MusicFolder.h"

#include "platform/music/SongTags.h"

#include <fcntl.h>
#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/vfs.h>

#include <algorithm>
#include <array>
#include <set>
#include <string_view>
#include <utility>

namespace zelvo::music {

namespace fs = std::filesystem;

namespace {

/// Virtual files of the desktop clients of Nextcloud and ownCloud, as their manuals name them.
constexpr std::array<std::string_view, 2> kPlaceholderSuffixes{".nextcloud", ".owncloud"};
/// A smaller file may be kept within the entry of the folder, without a block.
constexpr std::int64_t kLeastBlockFile = 4096;

bool hasPlaceholderSuffix(const fs::path& file) {
    const std::string suffix = file.extension().string();
    return std::ranges::find(kPlaceholderSuffixes, suffix) != kPlaceholderSuffixes.end();
}

class Reading {
public:
    Reading(const MusicFolderLimits& given, const std::function<bool()>& stop)
        : limits(given)
        , isStopped(stop) {}

    MusicFolderContents contents;

    void read(const fs::path& folder, int depth) {
        struct stat status {};

        if (isFull(depth) || stat(folder.c_str(), &status) != 0 ||
            !seen.emplace(status.st_dev, status.st_ino).second)
            return;
        std::error_code error;
        fs::directory_iterator entries(folder, error);
        if (error) {
            contents.unreadable.push_back(folder);
            return;
        }
        contents.folders.push_back(folder);
        const bool tellsBlocks = !isInUserSpace(folder);
        std::vector<fs::path> below;
        for (; entries != fs::directory_iterator() && !error; entries.increment(error)) {
            const fs::path& path = entries->path();
            if (path.filename().native().starts_with('.'))
                continue;
            if (isSong(withoutPlaceholderSuffix(path)))
                addSong(path, tellsBlocks);
            else if (entries->is_directory(error))
                below.push_back(path);
            error.clear();
        }
        for (const fs::path& path : below)
            read(path, depth + 1);
    }

private:
    bool isFull(int depth) {
        const bool isOver = depth > limits.depth || contents.folders.size() >= limits.folders ||
                            contents.songs.size() >= limits.songs;
        contents.isWhole = contents.isWhole && !isOver;
        return isOver || (isStopped && isStopped());
    }

    static bool isInUserSpace(const fs::path& folder) {
        struct statfs system {};

        return statfs(folder.c_str(), &system) != 0 || system.f_type == FUSE_SUPER_MAGIC;
    }

    void addSong(const fs::path& path, bool tellsBlocks) {
        constexpr std::int64_t kNanoseconds = 1'000'000'000;

        struct stat status {};

        if (contents.songs.size() >= limits.songs || stat(path.c_str(), &status) != 0 ||
            !S_ISREG(status.st_mode))
            return;
        const bool isHollow =
            tellsBlocks && status.st_blocks == 0 && status.st_size >= kLeastBlockFile;
        contents.songs.push_back(
            {.path = path,
             .size = status.st_size,
             .changed = status.st_mtim.tv_sec * kNanoseconds + status.st_mtim.tv_nsec,
             .isCloudItem = isHollow || hasPlaceholderSuffix(path)});
    }

    const MusicFolderLimits& limits;
    const std::function<bool()>& isStopped;
    std::set<std::pair<dev_t, ino_t>> seen; ///< a link may lead back to a folder above it
};

} // namespace

MusicFolderContents readMusicFolder(
    const fs::path& folder,
    const MusicFolderLimits& limits,
    const std::function<bool()>& isStopped) {
    Reading reading(limits, isStopped);
    reading.read(folder, 0);
    std::ranges::sort(reading.contents.songs, {}, &SongFile::path);
    return std::move(reading.contents);
}

fs::path withoutPlaceholderSuffix(const fs::path& file) {
    return hasPlaceholderSuffix(file) ? fs::path(file).replace_extension() : file;
}

} // namespace zelvo::music
