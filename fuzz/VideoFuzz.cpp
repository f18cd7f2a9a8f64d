// SPDX-License-Identifier: MIT

// A foreign video file: opened, and some of its pictures decoded, forwards and backwards.

#include "MemoryFile.h"
#include "platform/media/VideoReader.h"

#include <cstdint>
#include <string>

namespace {

constexpr std::size_t kMaxBytes = 24U << 10U; // damage matters most in the first pictures

void readAll(const std::string& path) {
    auto reader = zelvo::media::VideoReader::open(path);
    if (!reader)
        return;
    for (const double part : {0.0, 0.3, 1.0, 0.5})
        static_cast<void>(reader->picture(reader->indexAt(reader->format().duration * part)));
}

} // namespace

// NOLINTNEXTLINE(readability-identifier-naming): the fuzzer calls it by this name
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size > kMaxBytes)
        return 0;
    zelvo::fuzz::withFile(data, size, &readAll);
    return 0;
}
