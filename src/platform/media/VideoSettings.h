// SPDX-License-Identifier: MIT
#pragma once

namespace zelvo::media {

enum class VideoCodec { h264, hevc };

/// What a movie's video is to be: 4:2:0, BT.709 in video range.
struct VideoSettings {
    static constexpr int kFramesPerSecond = 60;

    VideoCodec codec = VideoCodec::h264;
    int width = 1920; ///< even, 16 to 8192
    int height = 1080;
};

/// Whether this machine encodes the codec at 1920 x 1080 in hardware, found out by opening such an
/// encoder once. The product writes HEVC of itself only where this holds; asking for it elsewhere
/// falls back to a software encoder.
[[nodiscard]] bool hasHardwareEncoder(VideoCodec codec);

} // namespace zelvo::media
