// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/media/FFmpeg.h"

#include <filesystem>
#include <memory>
#include <vector>

namespace zelvo::media {

/// A QuickTime file being written, or an MPEG-4 one where the name ends in ".mp4". A file that is
/// not finished is removed when this goes.
class MovieFile {
public:
    enum class Layout {
        indexLast,  ///< quickest to write
        indexFirst, ///< plays while it is still being fetched; finishing rewrites the file
    };

    /// Makes the file; unwritable if that fails.
    [[nodiscard]] static foundation::Result<MovieFile>
    create(const std::filesystem::path& path, Layout layout);

    MovieFile(MovieFile&& other) noexcept = default;
    MovieFile& operator=(MovieFile&&) = delete;
    ~MovieFile();

    /// Before begin(). The index of the track, which keeps the given time base if it is in whole
    /// parts of a second.
    [[nodiscard]] int addTrack(const AVCodecParameters& parameters, AVRational timeBase);

    [[nodiscard]] foundation::Result<void> begin();

    /// Takes the packet's content; its times are in the time base given with the track.
    [[nodiscard]] foundation::Result<void> write(AVPacket& packet, int track);

    [[nodiscard]] foundation::Result<void> finish();

    [[nodiscard]] const std::filesystem::path& path() const { return path_; }

private:
    struct CloseOutput {
        void operator()(AVFormatContext* context) const;
    };

    MovieFile() = default;

    std::filesystem::path path_;
    std::unique_ptr<AVFormatContext, CloseOutput> format;
    std::vector<AVRational> timeBases; // of the packets, a track each
    Layout layout = Layout::indexLast;
    bool hasBegun = false;
    bool isFinished = false;
};

} // namespace zelvo::media
