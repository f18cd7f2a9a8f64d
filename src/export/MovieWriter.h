// SPDX-License-Identifier: MIT
#pragma once

#include "export/FramePipeline.h"
#include "export/FrameSource.h"
#include "export/MovieFiles.h"
#include "export/MovieOptions.h"
#include "export/MovieWriterOwner.h"
#include "export/RawMovie.h"
#include "export/VideoLibrary.h"
#include "platform/foundation/Lifetime.h"
#include "platform/media/AVAssetExportSession.h"
#include "shared/Signal.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

namespace zelvo::movie {

/// Turns a performance into a movie: plays it on the offscreen renderer, a frame a tick, and puts
/// the frames together with the music.
///
///     idle ──start──> preparing ──first frame──> rendering ──finish──> closing ──> idle,
///     "Movie.mov" on disk
///                         └───────────cancel─────────┴───────cancel──────┴───────> idle, as before
///
/// Drawing and reading back overlap on the run loop's thread, encoding runs on the writer's, the
/// mux on the session's; both report back through the run loop, to which everything here belongs.
///
/// A movie of duration 8.0 is drawn in 481 frames, 0 to 480, of which the mux cuts the last three:
/// it holds 478. The finished movie takes its place only when it is complete; until then, and after
/// a failure or a cancel, the earlier one stands untouched.
class MovieWriter {
public:
    enum class State { idle, preparing, rendering, closing };

    MovieWriter(
        MovieWriterOwner& owningModel,
        const foundation::Folders& folders,
        FrameSourceFactory frameFactory);
    ~MovieWriter();
    MovieWriter(const MovieWriter&) = delete;
    MovieWriter& operator=(const MovieWriter&) = delete;

    MovieOptions options; ///< of the next export; not to be changed during one

    ui::Signal<MovieProgress> progressSignal;
    /// Fired once at the end of each export. Cancelled is its own cause.
    ui::Signal<foundation::Result<MovieOutcome>> completedSignal;
    ui::Signal<> showVideoSignal; ///< "ShowVideo": the movie is there to be shown

    [[nodiscard]] State state() const { return state_; }

    /// The clock hands its frames here.
    [[nodiscard]] bool isRecording() const {
        return state_ == State::preparing || state_ == State::rendering;
    }

    /// Begins an export; the run starts 100 ms later. Errors: unavailable (no renderer), unwritable
    /// (no place for the movie), unsupported (another export is under way). After an error nothing
    /// has changed.
    [[nodiscard]] foundation::Result<void> start();

    /// One tick of an export's run. The count-in, below 0, is animated without being drawn.
    void renderFrame(int frame);

    /// The run has reached its end: closes the file and makes the movie of it.
    void finish();
    /// Ends an export at any moment, without a movie, unless that is just being put into its place:
    /// then the export is completed.
    void cancel();

    /// What the scene is attached to during an export; null before the first.
    [[nodiscard]] scene::SCNSceneRenderer* renderer() const;

    /// "Movie.mov", there or not.
    /// For one more copy among the user's videos.
    [[nodiscard]] std::filesystem::path freeVideoPlace() const { return library.freePlace(); }

    [[nodiscard]] std::filesystem::path movieURL() const { return files.finishedMovie(); }

    /// Of the present or the last export.
    [[nodiscard]] MovieTimings timings() const;

private:
    [[nodiscard]] foundation::Result<void> makeRenderer();
    [[nodiscard]] foundation::Result<void> prepareWriter();
    [[nodiscard]] std::filesystem::path outputPath() const;
    [[nodiscard]] int framesToDraw() const;
    [[nodiscard]] foundation::Result<void>
    takeFrame(const render::FrameView& frame, const FrameStamp& stamp);
    void leaveRun();
    void mux();
    void finished();
    [[nodiscard]] MovieOutcome savedToLibrary(MovieOutcome outcome);
    void fail(const foundation::Error& error);
    void end(const foundation::Result<MovieOutcome>& outcome);
    void releaseWriters();
    /// A callback for any thread that queues the call on the run loop, where it is dropped if this
    /// export is over.
    [[nodiscard]] std::function<void()> queued(void (MovieWriter::*call)());

    MovieWriterOwner& model;
    MovieFiles files;
    VideoLibrary library;
    FrameSourceFactory makeFrames;
    std::unique_ptr<FrameSource> frames; ///< made at the first start
    std::optional<FramePipeline> pipeline;
    std::unique_ptr<RawMovie> rawMovie;
    std::unique_ptr<media::AVAssetExportSession> session;
    std::string musicFailure; ///< of the session
    State state_ = State::idle;
    MovieProgress progress;
    double encodingSeconds = 0;
    /// Of the export under way: what comes later than its end is dropped.
    std::optional<foundation::Lifetime> exportLifetime;
};

} // namespace zelvo::movie
