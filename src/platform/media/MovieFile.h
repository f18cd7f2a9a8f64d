// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/NewFile.h"
#include "platform/foundation/Result.h"
#include "platform/media/FFmpeg.h"

#include <filesystem>
#include <memory>
#include <vector>

namespace zelvo::media {

/// Writes a movie file, of the kind that the ending of its name says (containerOf). It is put in
/// place when it is finished and committed; otherwise nothing is left behind.
///
/// QuickTime and MP4 keep times to 1/600 s, WebM to 1/1000 s.
class MovieFile {
public:
    enum class Layout {
        indexLast,  ///< fastest to write
        indexFirst, ///< can be played while it loads; finish() rewrites the file
    };

    /// Error: `unwritable`.
    [[nodiscard]] static foundation::Result<MovieFile>
    create(const std::filesystem::path& path, Layout layout, foundation::NewFile::Use use);

    MovieFile(MovieFile&& other) noexcept = default;
    MovieFile& operator=(MovieFile&&) = delete;

    /// Call it before begin(). Returns the index of the track. The time base is kept if it is a
    /// whole fraction of a second. Pictures in YUVA420P have alpha.
    [[nodiscard]] int addTrack(const AVCodecParameters& parameters, AVRational timeBase);

    [[nodiscard]] foundation::Result<void> begin();

    /// Writes the packet and takes its content. Its times are in the time base of the track.
    [[nodiscard]] foundation::Result<void> write(AVPacket& packet, int track);

    /// Writes the index.
    [[nodiscard]] foundation::Result<void> finish();

    /// Puts the finished file in place.
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
    std::vector<AVRational> timeBases; // of the packets of each track
    Layout layout = Layout::indexLast;
    bool hasBegun = false;
};

} // namespace zelvo::media
