// SPDX-License-Identifier: MIT
#include "export/MovieWriter.h"

#include "export/MovieMux.h"
#include "platform/foundation/Check.h"
#include "platform/foundation/NewFile.h"
#include "shared/FrameClock.h"

#include <fmt/format.h>

#include <utility>

namespace zelvo::movie {

using foundation::Cause;
using foundation::Error;
using foundation::Result;
using shared::FrameClock;

namespace {

constexpr double kStartDelay = 0.1; ///< seconds; time for the scene to move to the other renderer

} // namespace

MovieWriter::MovieWriter(
    MovieWriterOwner& owningModel,
    const foundation::Folders& folders,
    FrameSourceFactory frameFactory)
    : model(owningModel)
    , files(folders)
    , library(folders.videos)
    , makeFrames(std::move(frameFactory)) {}

MovieWriter::~MovieWriter() {
    exportLifetime.reset();
    releaseWriters();
}

Result<void> MovieWriter::start() {
    if (state_ != State::idle) {
        return foundation::fail(
            Cause::unsupported, "a movie is being made; wait for it or cancel it");
    }
    if (auto made = makeRenderer(); !made)
        return made;
    if (auto prepared = prepareWriter(); !prepared) {
        releaseWriters();
        files.deleteRawMovie();
        return prepared;
    }
    exportLifetime.emplace();
    progress = {0, framesToDraw()};
    encodingSeconds = 0;
    frames->resetTimes();

    model.stopAndReset();
    model.attachScene(SceneHome::movieRenderer);
    state_ = State::preparing;
    model.runLoop().asyncAfter(kStartDelay, exportLifetime->guard([this] { model.start(); }));
    return {};
}

int MovieWriter::framesToDraw() const {
    if (options.tap && !options.writesMovie)
        return options.tap->count;
    return FrameClock::framesDrawnIn(model.duration());
}

Result<void> MovieWriter::makeRenderer() {
    if (!frames) {
        auto made = makeFrames();
        if (!made)
            return tl::unexpected(made.error());
        frames = std::move(*made);
    }
    pipeline.emplace(*frames, [this](const render::FrameView& frame, const FrameStamp& stamp) {
        return takeFrame(frame, stamp);
    });
    return {};
}

Result<void> MovieWriter::prepareWriter() {
    if (!options.writesMovie)
        return {};
    // Check now, not after the last frame.
    if (auto placed = foundation::NewFile::check(outputPath()); !placed)
        return placed;
    const media::Container container = media::containerOf(outputPath());
    const auto alpha = options.leftOut == 0 ? media::Alpha::none : media::Alpha::straight;
    const auto codec = media::codecFor(container, alpha, options.codec);
    if (!codec)
        return tl::unexpected(codec.error());
    if (auto made = files.makeWorkFolder(container); !made)
        return made;
    const auto [width, height] = options.renderSize;
    const auto effort = options.quality.detail == render::Detail::coarse
                            ? media::EncodingEffort::little
                            : media::EncodingEffort::usual;
    auto made = RawMovie::create(files.rawMovie(), {*codec, width, height, alpha, effort});
    if (!made)
        return tl::unexpected(made.error());
    rawMovie = std::move(*made);
    return {};
}

std::filesystem::path MovieWriter::outputPath() const {
    return options.output.value_or(movieURL());
}

void MovieWriter::renderFrame(int frame) {
    if (!isRecording())
        return;
    if (frame >= 0)
        state_ = State::rendering;
    const double time = FrameClock::secondsOf(frame);
    const FrameStamp stamp{
        .frame = frame,
        .isForTap = options.tap && options.tap->wants(frame),
        .isForMovie = rawMovie && frame >= 0,
    };
    if (!stamp.isForTap && !stamp.isForMovie) {
        frames->renderer().update(time);
        return;
    }
    const render::FrameRequest request{
        .time = time,
        .outputSize = options.renderSize,
        .quality = options.quality,
        .leftOut = options.leftOut,
    };
    if (auto drawn = pipeline->submit(request, stamp); !drawn)
        fail(drawn.error());
}

Result<void> MovieWriter::takeFrame(const render::FrameView& frame, const FrameStamp& stamp) {
    if (stamp.isForTap) {
        if (auto taken = options.tap->take(stamp.frame, frame); !taken)
            return taken;
    }
    if (stamp.isForMovie) {
        const auto at = FrameClock::presentationTime(stamp.frame);
        if (auto written = rawMovie->append(frame, at); !written)
            return written;
    }
    ++progress.framesDone;
    progressSignal.fire(progress);
    return {};
}

void MovieWriter::finish() {
    if (!isRecording())
        return;
    if (auto drained = pipeline->drain(); !drained) {
        fail(drained.error());
        return;
    }
    leaveRun();
    state_ = State::closing;
    if (!rawMovie) {
        end(MovieOutcome{.frames = progress.framesDone});
        return;
    }
    rawMovie->finish(queued(&MovieWriter::mux));
    model.stopAndReset();
}

void MovieWriter::cancel() {
    if (state_ == State::idle)
        return;
    if (isRecording())
        leaveRun();
    if (session) {
        session->cancelExport();
        if (session->status() == media::AVAssetExportSession::Status::completed) {
            finished(); // too late to cancel: the movie is in place
            return;
        }
    }
    end(foundation::fail(Cause::cancelled, "the movie was cancelled"));
}

void MovieWriter::leaveRun() {
    pipeline->discard();
    model.stopAndReset();
    model.attachScene(SceneHome::screen);
}

std::function<void()> MovieWriter::queued(void (MovieWriter::*call)()) {
    const auto guarded = exportLifetime->guard([this, call] { (this->*call)(); });
    return [&loop = model.runLoop(), guarded] { loop.post(guarded); };
}

void MovieWriter::mux() {
    if (auto written = rawMovie->outcome(); !written) {
        fail(written.error());
        return;
    }
    encodingSeconds = rawMovie->encodingSeconds();
    rawMovie.reset();
    auto made = makeExportSession(files.rawMovie(), outputPath(), model.music());
    if (!made) {
        fail(made.error());
        return;
    }
    session = std::move(made->session);
    musicFailure = std::move(made->musicFailure);
    song = std::move(made->song);
    session->exportAsynchronously(queued(&MovieWriter::finished));
}

void MovieWriter::finished() {
    using Status = media::AVAssetExportSession::Status;
    if (session->status() != Status::completed) {
        Error error = session->error();
        files.keepRawMovie();
        error.message += fmt::format(
            " All frames are done: the movie without its music is kept at {}.",
            files.rawMovie().string());
        showVideoSignal.fire(); // there may be an earlier movie to show
        fail(error);
        return;
    }
    showVideoSignal.fire();
    if (!musicFailure.empty())
        model.showAlert("The movie is silent", musicFailure);
    MovieOutcome outcome{
        .frames = progress.framesDone, .movie = outputPath(), .musicFailure = musicFailure};
    if (session->soundHasGaps()) {
        outcome.musicDamage = fmt::format(
            "{} is damaged: where it cannot be decoded, the movie is silent or the song jumps. Use "
            "another copy of it.",
            song.string());
        model.showAlert("The song is damaged", outcome.musicDamage);
    }
    if (!options.output) {
        files.deleteOtherMovies(options.container);
        outcome = savedToLibrary(std::move(outcome));
    }
    end(std::move(outcome));
}

MovieOutcome MovieWriter::savedToLibrary(MovieOutcome outcome) {
    const auto saved = library.save(outcome.movie, options.copyPlace);
    if (saved) {
        outcome.savedCopy = *saved;
        model.showAlert("Movie successfully saved to your Photo Library.", "");
        return outcome;
    }
    outcome.saveFailure = saved.error().message;
    if (saved.error().isDenied) {
        model.showAlert(
            "Access denied",
            "The app needs your approval to access photo library. Please enable it in Settings.");
    } else {
        model.showAlert("Error", saved.error().message);
    }
    return outcome;
}

void MovieWriter::fail(const Error& error) {
    if (isRecording())
        leaveRun();
    model.showAlert("Error", error.message);
    end(tl::unexpected(error));
}

void MovieWriter::end(const Result<MovieOutcome>& outcome) {
    exportLifetime.reset();
    releaseWriters();
    files.deleteRawMovie();
    state_ = State::idle;
    completedSignal.fire(outcome);
}

void MovieWriter::releaseWriters() {
    if (session)
        session->cancelExport();
    session.reset();
    if (rawMovie) {
        rawMovie->cancel();
        encodingSeconds = rawMovie->encodingSeconds();
    }
    rawMovie.reset();
}

scene::SCNSceneRenderer* MovieWriter::renderer() const {
    return frames ? &frames->renderer() : nullptr;
}

MovieTimings MovieWriter::timings() const {
    constexpr double kMsPerSecond = 1000.0;
    return {
        frames ? frames->times() : render::FrameTimes{},
        kMsPerSecond * (rawMovie ? rawMovie->encodingSeconds() : encodingSeconds)};
}

} // namespace zelvo::movie
