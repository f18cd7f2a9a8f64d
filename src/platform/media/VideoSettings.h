// SPDX-License-Identifier: MIT
#pragma once

namespace zelvo::media {

enum class VideoCodec { h264, hevc };

/// The format of a movie's video. Always 4:2:0, BT.709 in video range.
struct VideoSettings {
    static constexpr int kFramesPerSecond = 60;

    VideoCodec codec = VideoCodec::h264;
    int width = 1920; ///< even, 16 to 8192
    int height = 1080;
};

/// Whether this machine can encode 1920 x 1080 with this codec in hardware; tested once by opening
/// an encoder. HEVC is the default only if this is true. If HEVC is requested without it, a
/// software encoder is used.
[[nodiscard]] bool hasHardwareEncoder(VideoCodec codec);

} // namespace zelvo::media
