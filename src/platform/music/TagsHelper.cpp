// SPDX-License-Identifier: MIT
// zelvo-tags tags: reads the songs whose paths come on stdin, each with a zero behind it. Writes a line
// for each, as TagLines.h tells. Ends at a song that takes too long, or too much memory.
// zelvo-tags cover: writes the cover of the song whose path comes on stdin.
#include "platform/foundation/HelperLimits.h"
#include "platform/music/SongTags.h"
#include "platform/music/TagLines.h"

#include <array>
#include <cstdio>
#include <iostream>
#include <string>
#include <string_view>

namespace {

using namespace zelvo;

constexpr rlim_t kMaxMemory = rlim_t{1} << 30U;

int writeTags() {
    for (std::string path; std::getline(std::cin, path, '\0');) {
        foundation::limitHelperTime(music::kMaxSongSeconds);
        const auto tags = music::readSongTags(path);
        std::cout << (tags ? music::lineOf(*tags) : music::lineOf(tags.error())) << std::flush;
    }
    return 0;
}

int writeCover() {
    foundation::limitHelperTime(music::kMaxSongSeconds);
    std::string path;
    std::getline(std::cin, path, '\0');
    const auto cover = music::readSongCover(path);
    if (!cover)
        return 1;
    std::fwrite(cover->data(), 1, cover->size(), stdout);
    return std::fflush(stdout) == 0 ? 0 : 2;
}

} // namespace

int main(int argc, char** argv) {
    foundation::limitHelperMemory(kMaxMemory);
    const std::string_view work = argc == 2 ? argv[1] : "";
    if (work == "tags")
        return writeTags();
    if (work == "cover")
        return writeCover();
    std::fputs("usage: zelvo-tags tags|cover < PATHS\n", stderr);
    return 2;
}
