// SPDX-License-Identifier: MIT

// The tags of a foreign song. The first byte chooses the kind of file.

#include "MemoryFile.h"
#include "platform/foundation/Check.h"
#include "platform/music/SongTags.h"

#include <array>
#include <string>

namespace {

constexpr std::size_t kMaxBytes = 16U
                                  << 10U; // tags of real songs are as small, without their covers
constexpr std::array kNames{"x.mp3", "x.m4a", "x.flac", "x.ogg", "x.wav", "x.aiff", "x.aac"};

} // namespace

// NOLINTNEXTLINE(readability-identifier-naming): the fuzzer calls it by this name
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 1 || size > kMaxBytes)
        return 0;
    const char* const name = kNames.at(data[0] % kNames.size());
    zelvo::fuzz::withFile(data + 1, size - 1, [name](const std::string& path) {
        const auto tags = zelvo::music::readSongTags(path, name);
        CHECK(!tags || tags->title.find_first_of("\n\t") == std::string::npos, "a line is a line");
    });
    return 0;
}
