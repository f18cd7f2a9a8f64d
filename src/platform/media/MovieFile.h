// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/NewFile.h"
#include "platform/foundation/Result.h"
#include "platform/media/FFmpeg.h"

#include <filesystem>
#include <memory>
#include <vector>

namespace zelvo::media {

/// A QuickTime file being written, or an MPEG-4 one where the name ends in ".mp4". It comes to
/// its place when it is finished and committed; one that is not leaves nothing behind.
class MovieFile {
public:
    enum class Layout {
        indexLast,  ///< quickest to write
        indexFirst, ///< plays while it is still being fetched; finishing rewrites the file
    };

    /// Errors: unwritable.
    [[nodiscard]] static foundation::Result<MovieFile>
    create(const std::filesystem::path& path, Layout layout, foundation::NewFile::Use use);

    MovieFile(MovieFile&& other) noexcept = default;
    MovieFile& operator=(MovieFile&&) = delete;

    /// Before begin(). The index of the track, which keeps the given time base if it is in whole
    /// parts of a second.
    [[nodiscard]] int addTrack(const AVCodecParameters& parameters, AVRational timeBase);

    [[nodiscard]] foundation::Result<void> begin();

    /// Takes the packet's content; its times are in the time base given with the track.
    [[nodiscard]] foundation::Result<void> write(AVPacket& packet, int track);

    /// Writes what a reader needs to find its way in the file.
    [[nodiscard]] foundation::Result<void> finish();

    /// Puts the finished file into its place.
    [[nodiscard]] foundation::Result<void> commit();

    [[nodiscard]] const std::filesystem::path& path() const { return path_; }

private:
    struct CloseOutput {
        void operator()(AVFormatContext* context) const;
    };

    MovieFile(std::filesystem::path place, foundation::NewFile made)
        : path_(std::move(place))
        , file(std::move(made)) {}

    std::filesystem::path path_;
    foundation::NewFile file;
    std::unique_ptr<AVFormatContext, CloseOutput> format;
    std::vector<AVRational> timeBases; // of the packets, a track each
    Layout layout = Layout::indexLast;
    bool hasBegun = false;
};

} // namespace zelvo::media
