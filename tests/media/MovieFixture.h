// SPDX-License-Identifier: MIT
#pragma once

#include "media/MediaFixture.h"
#include "platform/media/AVAssetExportSession.h"
#include "platform/media/AVAssetWriter.h"

#include <sys/resource.h>

#include <csignal>
#include <memory>

namespace zelvo::media {

/// While it lives, no file can grow beyond so many bytes: writing fails then, as on a full disk.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes) {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &before);
        const rlimit small{bytes, before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &small);
    }

    ~FileSizeLimit() { setrlimit(RLIMIT_FSIZE, &before); }

    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    rlimit before{};
};

/// Writes small movies, by default 160 x 90 with a green square of 40 x 40 in the middle.
class MovieTest : public MediaTest {
protected:
    static constexpr VideoSettings kSmall{VideoCodec::h264, 160, 90};

    [[nodiscard]] static PixelBuffer picture(int width, int height);

    /// A writer that has been started, with its input.
    struct Writing {
        std::unique_ptr<AVAssetWriter> writer;
        AVAssetWriterInput* input = nullptr;
        std::unique_ptr<AVAssetWriterInputPixelBufferAdaptor> adaptor;
    };

    [[nodiscard]] static Writing
    start(const std::filesystem::path& file, const VideoSettings& settings);
    [[nodiscard]] static foundation::Result<void> append(Writing& writing, int frame);
    static void finish(Writing& writing);
    void writeMovie(const std::filesystem::path& file, int frames);

    /// The stretch of music in an export. Times are seconds.
    struct Music {
        std::filesystem::path file;
        double in = 0.0;
        double duration = 0.0;
        double at = 0.0;
        AVMutableAudioMixInputParameters volume;
    };

    /// A session for the first `frames` of the movie, with music if there is a file for it.
    [[nodiscard]] std::unique_ptr<AVAssetExportSession>
    session(const std::filesystem::path& movie, int frames, const Music& music);
    static void run(AVAssetExportSession& session);
};

} // namespace zelvo::media
