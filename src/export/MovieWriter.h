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

/// Turns a performance into a movie: plays it on the offscreen renderer, one frame a tick, and
/// joins the frames with the music.
///
///     idle ──start──> preparing ──first frame──> rendering ──finish──> closing ──> idle, with movie
///                         └───────────cancel─────────┴───────cancel──────┴───────> idle, as before
///
/// Drawing and reading back overlap on the run loop's thread; encoding runs on the writer's thread,
/// and the mux on the session's. Both report back through the run loop; everything here must be
/// called on its thread.
///
/// A movie of duration 8.0 is drawn in 481 frames, 0 to 480. The mux cuts the last three, so it has
/// 478. The finished movie is put in place when it is complete; after a failure or a cancel, an
/// earlier movie is unchanged.
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

    MovieOptions options; ///< of the next export; do not change it during one

    ui::Signal<MovieProgress> progressSignal;
    /// Sent once at the end of each export. Cancelling is an error with its own cause.
    ui::Signal<foundation::Result<MovieOutcome>> completedSignal;
    ui::Signal<> showVideoSignal; ///< "ShowVideo": a movie is ready to be shown

    [[nodiscard]] State state() const { return state_; }

    /// True if the clock must pass its frames to this object.
    [[nodiscard]] bool isRecording() const {
        return state_ == State::preparing || state_ == State::rendering;
    }

    /// Starts an export; the run begins 100 ms later. Errors: `unavailable` (no renderer),
    /// `unwritable` (the movie cannot be written), `unsupported` (another export is running). After
    /// an error nothing has changed.
    [[nodiscard]] foundation::Result<void> start();

    /// One tick of an export's run. In the count-in (frames below 0) the scene is animated but not
    /// drawn.
    void renderFrame(int frame);

    /// For the end of the run: closes the file and makes the movie.
    void finish();
    /// Ends an export without a movie. If the movie is just being put in place, the export is
    /// completed instead.
    void cancel();

    /// The scene is attached to this during an export; null before the first one.
    [[nodiscard]] scene::SCNSceneRenderer* renderer() const;

    /// The path for one more copy among the user's videos.
    [[nodiscard]] std::filesystem::path freeVideoPlace() const {
        const auto& row = media::infoOf(options.container);
        return library.freePlace(options.copyPlace, row.ending);
    }

    /// The path of "Movie.mov" (with the container's ending), or of another name while another
    /// window uses that one; the file need not exist.
    [[nodiscard]] std::filesystem::path movieURL() const {
        return files.finishedMovie(options.container);
    }

    /// Of the current or the last export.
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
    /// Makes a callback for any thread. It queues the call on the run loop, where it is dropped if
    /// this export has ended.
    [[nodiscard]] std::function<void()> queued(void (MovieWriter::*call)());

    MovieWriterOwner& model;
    MovieFiles files;
    VideoLibrary library;
    FrameSourceFactory makeFrames;
    std::unique_ptr<FrameSource> frames; ///< made at the first start
    std::optional<FramePipeline> pipeline;
    std::unique_ptr<RawMovie> rawMovie;
    std::unique_ptr<media::AVAssetExportSession> session;
    std::string musicFailure;   ///< of the current session
    std::filesystem::path song; ///< of the current session
    State state_ = State::idle;
    MovieProgress progress;
    double encodingSeconds = 0;
    /// For the current export: calls that come after its end are dropped.
    std::optional<foundation::Lifetime> exportLifetime;
};

} // namespace zelvo::movie
