// SPDX-License-Identifier: MIT
#pragma once

namespace zelvo::media {

/// ProRes 4444 is only written with alpha, VP9 with and without, the others without.
enum class VideoCodec { h264, hevc, vp9, proRes4444 };

enum class Alpha { none, straight };

/// What an encoder in software spends on a frame.
enum class EncodingEffort {
    usual,
    little ///< for drafts: half the time, larger files
};

/// The format of a movie's video: BT.709 in video range. 4:2:0, and 4:4:4 in ProRes.
struct VideoSettings {
    static constexpr int kFramesPerSecond = 60;

    VideoCodec codec = VideoCodec::h264;
    int width = 1920; ///< even, 16 to 8192
    int height = 1080;
    Alpha alpha = Alpha::none;
    EncodingEffort effort = EncodingEffort::usual;
};

/// Whether this machine can encode 1920 x 1080 with this codec in hardware; tested once by opening
/// an encoder. HEVC is the default only if this is true. If HEVC is requested without it, a
/// software encoder is used.
[[nodiscard]] bool hasHardwareEncoder(VideoCodec codec);

} // namespace zelvo::media
