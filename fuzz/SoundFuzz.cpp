// SPDX-License-Identifier: MIT

// A foreign sound or movie file: opened, sought and decoded for some seconds.

#include "MemoryFile.h"
#include "platform/media/AVAsset.h"
#include "platform/media/AudioReader.h"

#include <cstdint>
#include <string>
#include <vector>

namespace {

constexpr std::size_t kMaxBytes = 16U << 10U; // damage matters most in the first blocks
constexpr int kBlocksRead = 2;

void readAll(const std::string& path) {
    static_cast<void>(zelvo::media::AVAsset::open(path));
    auto reader = zelvo::media::AudioReader::open(path);
    if (!reader)
        return;
    std::vector<float> block(4800);
    for (const double part : {0.0, 0.75}) {
        reader->seek(reader->duration() * part);
        for (int i = 0; i < kBlocksRead && reader->read(block) > 0; ++i) {
        }
    }
}

} // namespace

// NOLINTNEXTLINE(readability-identifier-naming): the fuzzer calls it by this name
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size > kMaxBytes)
        return 0;
    zelvo::fuzz::withFile(data, size, &readAll);
    return 0;
}
