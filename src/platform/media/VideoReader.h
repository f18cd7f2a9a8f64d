// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/image/Image.h"

#include <cstddef>
#include <filesystem>
#include <memory>

namespace zelvo::media {

/// What a video file holds.
struct VideoFormat {
    int width = 0;              ///< as shown: upright, with square pixels
    int height = 0;             ///< as shown
    double duration = 0;        ///< seconds, from the first picture to the end of the last one
    double framesPerSecond = 0; ///< on average
    bool hasAlpha = false;
    bool hasSound = false;
};

/// Whether the file is a movie with pictures that move: not a sound with a cover.
[[nodiscard]] bool isVideoFile(const std::filesystem::path& file);

/// Decodes the pictures of a video file, any one at any time.
///
/// Pictures are numbered in the order in which they are shown. Time 0 is the first picture, whatever
/// time the file gives it. A picture is shown from its own time to that of the next one. Where a
/// damaged file lacks a picture, the one before it stays.
///
/// Interlaced pictures are shown as they are. One thread at a time, except indexAt.
class VideoReader {
public:
    /// Limits: those of openMediaFile; sides up to kMaxSide as stored and kMaxPixels in all.
    static constexpr int kMaxSide = 16384;
    static constexpr std::int64_t kMaxPixels = 80'000'000;
    /// Larger pictures are scaled down to this.
    static constexpr int kMaxShownSide = 4096;

    /// Reads the whole file once to find the times of its pictures, and decodes the first one.
    /// Errors: those of openMediaFile; `unsupported` if there is no video that can be decoded;
    /// `tooLarge`.
    [[nodiscard]] static foundation::Result<VideoReader> open(const std::filesystem::path& file);

    ~VideoReader();
    VideoReader(VideoReader&& other) noexcept;
    VideoReader& operator=(VideoReader&& other) noexcept;

    [[nodiscard]] const VideoFormat& format() const;

    /// The picture on show at this time: the first one before time 0, the last one after the end.
    [[nodiscard]] std::size_t indexAt(double seconds) const;

    [[nodiscard]] std::size_t count() const;

    /// Decodes a picture. The next one in order is fast; another one may need the decoding of many.
    [[nodiscard]] image::ImagePtr picture(std::size_t index);

private:
    struct State;
    explicit VideoReader(std::unique_ptr<State> opened);

    std::unique_ptr<State> state;
};

} // namespace zelvo::media
