// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/image/Image.h"
#include "platform/media/CMTime.h"
#include "platform/media/VideoReader.h"

#include <filesystem>
#include <memory>

namespace zelvo::media {

/// Plays the pictures of a video file. It has no clock: its owner sets the time with `seek` and asks
/// for the picture of that time.
///
/// A thread decodes some pictures ahead of the last one that was asked for. The first picture is
/// kept, so that it is there at once after a rewind.
class AVPlayer {
public:
    /// What to do if the picture is not decoded yet.
    enum class Patience {
        waits,       ///< the right picture, however long it takes: for an export
        takesNearest ///< returns at once, with the last picture that was ready: for the screen
    };

    /// Takes a moment, as all of the file is read. Any thread. Errors: those of VideoReader.
    [[nodiscard]] static foundation::Result<std::shared_ptr<AVPlayer>>
    open(const std::filesystem::path& file);

    ~AVPlayer();
    AVPlayer(const AVPlayer&) = delete;
    AVPlayer& operator=(const AVPlayer&) = delete;

    [[nodiscard]] const VideoFormat& format() const;

    /// Seconds from the first picture. Values set are clamped to the video.
    [[nodiscard]] double currentTime() const;
    void seek(CMTime to);
    void seek(double seconds);

    /// The picture on show at the current time; never null.
    [[nodiscard]] image::ImagePtr picture(Patience patience);

private:
    class Ahead;
    explicit AVPlayer(VideoReader reader);

    std::unique_ptr<Ahead> ahead;
    double time = 0;
};

} // namespace zelvo::media
