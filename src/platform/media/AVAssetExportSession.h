// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/media/AVMutableAudioMix.h"
#include "platform/media/AVMutableComposition.h"
#include "platform/media/CMTime.h"

#include <atomic>
#include <filesystem>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>

namespace zelvo::media {

class MovieFile;
class SoundTrack;

/// Writes a composition to a movie file, of the kind that its name says, on its own thread. The
/// video is copied without encoding it again; the sound is decoded, mixed and encoded as AAC, or in
/// WebM as Opus. The movie is put in place
/// when it is complete, so an earlier movie stays if the export fails or is cancelled.
///
/// The video track must begin at 0, in its file and in the composition, and must not have reordered
/// frames (AVAssetWriter makes such files).
class AVAssetExportSession {
public:
    enum class Status { unknown, exporting, completed, failed, cancelled };

    explicit AVAssetExportSession(AVMutableComposition tracks);
    ~AVAssetExportSession();
    AVAssetExportSession(const AVAssetExportSession&) = delete;
    AVAssetExportSession& operator=(const AVAssetExportSession&) = delete;

    // Set these before the export.
    std::filesystem::path outputURL;
    CMTimeRange timeRange;                     ///< must begin at 0; later frames are left out
    std::optional<AVMutableAudioMix> audioMix; ///< none: the sound is not changed
    bool shouldOptimizeForNetworkUse = false;  ///< puts the index in front of the frames

    /// Starts the export; can be called once. `completion` is called on the session's thread, with
    /// the status completed, failed or cancelled. It must not destroy the session; post to the run
    /// loop instead.
    void exportAsynchronously(std::function<void()> completion);

    /// Stops the export and waits until it has ended. Afterwards the status is either cancelled,
    /// and nothing has changed on disk, or completed. Must not be called from the completion.
    void cancelExport();

    [[nodiscard]] Status status() const { return status_; }

    /// The cause of status failed: `unwritable`, `unsupported`, or an error of the song.
    [[nodiscard]] foundation::Error error() const;

    /// Whether some of the song could not be decoded, once the status is completed.
    [[nodiscard]] bool soundHasGaps() const { return soundHasGaps_; }

    /// 0 to 1. Any thread.
    [[nodiscard]] double progress() const { return progress_; }

private:
    class VideoSource;
    enum class Stage { making, placing, cancelled };

    void run(const std::function<void()>& completion);
    [[nodiscard]] foundation::Result<void> writeMovie();
    [[nodiscard]] foundation::Result<void> place(MovieFile& movie);
    [[nodiscard]] foundation::Result<std::unique_ptr<SoundTrack>> openSound(double length) const;
    [[nodiscard]] foundation::Result<void>
    copyPackets(VideoSource& video, SoundTrack* sound, MovieFile& movie, int videoTrack);
    [[nodiscard]] AVMutableAudioMixInputParameters volumeOf(int trackID) const;

    const AVMutableComposition composition;
    std::atomic<Status> status_ = Status::unknown;
    std::atomic<double> progress_ = 0.0;
    std::atomic<bool> soundHasGaps_ = false;
    std::atomic<Stage> stage = Stage::making;
    mutable std::mutex mutex; // guards error_
    foundation::Error error_;
    std::thread thread;
};

} // namespace zelvo::media
