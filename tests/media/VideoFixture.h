// SPDX-License-Identifier: MIT
#pragma once

#include "platform/image/Image.h"

#include <cstdint>
#include <filesystem>
#include <functional>

namespace zelvo::media {

/// Each picture bears its number as eight bars over the upper half: white is 1, the left one is the
/// highest. The lower half is grey.
void drawNumber(image::Image& picture, int number);
[[nodiscard]] int numberIn(const image::Image& picture);

/// A video to make.
struct VideoToMake {
    const char* encoder = "libx264";
    const char* pixelFormat = "yuv420p";
    int width = 160;
    int height = 96;
    int frames = 24;
    int ticksPerSecond = 600;
    /// The time of each frame in ticks; by default 30 frames a second.
    std::function<std::int64_t(int)> timeOf = [](int frame) { return std::int64_t{20} * frame; };
    const char* matrix = "bt709";
    const char* transfer = "bt709";
    bool hasFullRange = false;
    bool isInterlaced = false; ///< the upper field first
    int bFrames = 2;
    int keyInterval = 8;
    double pixelAspect = 1;
    double quarterTurns = 0; ///< clockwise, when shown
    std::function<void(image::Image&, int)> draw = drawNumber;
};

/// Encodes with FFmpeg, in the format that the file's name says.
void makeVideo(const std::filesystem::path& file, const VideoToMake& video);

} // namespace zelvo::media
