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

/// Writes a composition to a QuickTime movie, on a thread of its own. The video passes through as
/// it was encoded; the sound is decoded, mixed and encoded as AAC. The movie is put
/// into its place when it is complete, so an earlier movie stands until then, and after a
/// failure or cancelling.
///
/// The video track must begin at 0 in its file and in the composition, and be free of reordered
/// frames, as AVAssetWriter makes them.
class AVAssetExportSession {
public:
    enum class Status { unknown, exporting, completed, failed, cancelled };

    explicit AVAssetExportSession(AVMutableComposition tracks);
    ~AVAssetExportSession();
    AVAssetExportSession(const AVAssetExportSession&) = delete;
    AVAssetExportSession& operator=(const AVAssetExportSession&) = delete;

    // To be set before the export.
    std::filesystem::path outputURL;
    CMTimeRange timeRange;                     ///< begins at 0; frames from its end on are left out
    std::optional<AVMutableAudioMix> audioMix; ///< none: the sound as it is
    bool shouldOptimizeForNetworkUse = false;  ///< the index in front of the frames

    /// Starts, once. The completion is called on the session's thread, with the status completed,
    /// failed or cancelled; it must not destroy the session: let it post to the run loop.
    void exportAsynchronously(std::function<void()> completion);

    /// Stops the export and waits for its end, after which the status tells what came first: the
    /// cancel, and nothing has changed on disk, or the movie. Not from the completion.
    void cancelExport();

    [[nodiscard]] Status status() const { return status_; }

    /// Why the status is failed. unwritable, unsupported, or what was wrong with the song.
    [[nodiscard]] foundation::Error error() const;

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
    std::atomic<Stage> stage = Stage::making;
    mutable std::mutex mutex; // guards error_
    foundation::Error error_;
    std::thread thread;
};

} // namespace zelvo::media
