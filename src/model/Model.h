// SPDX-License-Identifier: MIT
#pragma once

#include "actions/ActionController.h"
#include "actions/ActionControllerOwner.h"
#include "audio/AudioPlayer.h"
#include "environments/SNE.h"
#include "export/MovieWriter.h"
#include "export/MovieWriterOwner.h"
#include "model/AnimationRatio.h"
#include "model/SilentReplay.h"
#include "platform/foundation/Folders.h"
#include "platform/foundation/Lifetime.h"
#include "platform/foundation/RunLoop.h"
#include "platform/scene/SCNSceneRenderer.h"
#include "shared/FrameClock.h"
#include "stage/Nodes.h"

#include <atomic>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace zelvo::model {

/// What the model needs from outside. The run loop and the nodes must outlive it.
struct ModelServices {
    foundation::RunLoop& runLoop;
    stage::Nodes& nodes;
    foundation::Folders folders;
    movie::FrameSourceFactory makeFrames;      ///< called when the first movie starts
    media::AudioOutputFactory makeAudioOutput; ///< empty: the music is silent
    /// Empty: no alerts are shown.
    std::function<void(const std::string& title, const std::string& message)> showAlert;
};

enum class Reset {
    keepTime, ///< the time display stays where the run ended
    toStart
};

/// The hub: owns a project's state, its performance and its clock.
///
/// The clock is counted, not measured: each tick of a run adds one step, however late it comes. A
/// run starts with a count-in of `startCounter` seconds; time in the performance is the clock's
/// time minus that. Live runs and exports use the same ticks; they differ in how fast these come
/// and in what is done with each frame.
///
///     idle ──start──> count-in ──> performing ──end──> ended (for 1 s blocking)
///       └───────────────toggle, stop────┘
///
/// The clock can also be parked at a moment, which the stage then shows. A run can begin there, either
/// to record or only to play; when it is stopped, the clock is parked again.
///
/// Main thread only, except `time`, `isPlaying` and `recordsActs`.
class Model final : public actions::ActionControllerOwner,
                    public movie::MovieWriterOwner,
                    public scene::SCNSceneRendererDelegate {
public:
    static constexpr double kMinDuration = 2.0;

    explicit Model(ModelServices given);
    ~Model() override;
    Model(const Model&) = delete;
    Model& operator=(const Model&) = delete;

    /// The process's model. Call `makeShared` once at start-up; it lives as long as the process.
    static Model& makeShared(ModelServices services);
    [[nodiscard]] static Model& shared();

    // --- the run
    void start() override;
    void stop(Reset reset);
    /// Starts a run, or stops the current one and resets the clock. A run from a parked clock begins
    /// `kLeadIn` earlier, and stopping it parks the clock where it was.
    void toggle();
    /// The same for a run in which nothing is recorded. It begins at the parked clock; stopping it parks
    /// the clock where it has come to.
    void togglePlaying();

    static constexpr double kLeadIn = 2.0; ///< seconds

    /// Parks the clock at a time of the performance, held within its duration, and shows the stage as the
    /// movie has it then: all up to that frame is replayed at once, without pictures and sound. Ends a
    /// live run. Does nothing during an export.
    void seek(double time);

    /// Whether the clock is parked.
    [[nodiscard]] bool isParked() const { return parked; }

    /// Seconds of the performance: where the clock is parked, or was parked before this run or before a
    /// press by hand. Empty: at the beginning.
    [[nodiscard]] const std::optional<double>& playhead() const { return playhead_; }

    /// One tick of the clock.
    void runTimedCode();

    [[nodiscard]] double time() const override { return clock.time(); }

    [[nodiscard]] bool isPlaying() const override { return isPlaying_; }

    [[nodiscard]] bool recordsActs() const override { return isPlaying_ && !onlyPlays; }

    /// Seconds of the performance without the count-in. Initially 8.0, never below 2.0.
    [[nodiscard]] double duration() const override { return duration_; }

    void setDuration(double seconds);

    [[nodiscard]] double startCounter() const { return startCounter_; }

    /// True for one second after a live run has ended by itself.
    [[nodiscard]] bool isBlocking() const { return blocking; }

    // --- the stage
    [[nodiscard]] stage::Nodes& nodes() const { return services.nodes; }

    /// The nodes that the user has chosen for presses.
    [[nodiscard]] const std::vector<node::NodePtr>& affectedNodes() const { return affectedNodes_; }

    void setAffectedNodes(std::vector<node::NodePtr> nodes) { affectedNodes_ = std::move(nodes); }

    [[nodiscard]] const image::Color& currentBackgroundColor() const {
        return currentBackgroundColor_;
    }

    void setCurrentBackgroundColor(const image::Color& color);
    /// Makes the environment and moves the stage's permanent nodes into it. An invalid index is a
    /// programming error.
    void setScene(int index);

    [[nodiscard]] int currentSceneIndex() const { return currentSceneIndex_; }

    [[nodiscard]] const environments::SNEPtr& sceneData() const { return sceneData_; }

    /// Sets the view on screen or its replacement. Not owned; null removes it.
    void setSceneView(scene::SCNSceneRenderer* view);

    [[nodiscard]] scene::SCNSceneRenderer* sceneView() const { return sceneView_; }

    /// Chooses the renderer that shows the scene, from the next turn of the run loop on.
    void attachScene(movie::SceneHome home) override;
    /// The renderer that shows the scene now; null if none does.
    [[nodiscard]] scene::SCNSceneRenderer* currentRenderer() const override;

    // --- speed
    AnimationRatio animationRatio = AnimationRatio::normal;

    [[nodiscard]] double animationFactor() const override {
        return speedOf(animationRatio).animationFactor;
    }

    // --- what the model owns
    [[nodiscard]] actions::ActionController& actionController() const;

    [[nodiscard]] audio::AudioPlayer& audioPlayer() { return audioPlayer_; }

    [[nodiscard]] movie::MovieWriter& movieWriter() const;

    // --- the movie
    [[nodiscard]] bool isRecordingMovie() const;
    [[nodiscard]] foundation::Result<void> startMovie() const;
    void cancelMovie() const;

    [[nodiscard]] std::filesystem::path movieURL() const { return movieWriter().movieURL(); }

    // --- ActionControllerOwner and MovieWriterOwner
    void stopAndReset() override { stop(Reset::toStart); }

    [[nodiscard]] bool repeatsDraws() const override { return isRecordingMovie() || isReplaying; }

    void willPerform() override;

    [[nodiscard]] foundation::SerialQueue& serialQueue() override { return *serialQueue_; }

    [[nodiscard]] foundation::RunLoop& runLoop() override {
        return isReplaying ? replay->loop() : services.runLoop;
    }

    [[nodiscard]] std::optional<movie::MusicStretch> music() const override;
    void showAlert(const std::string& title, const std::string& message) override;

    // --- SCNSceneRendererDelegate: fades nodes that are far from the stage's middle
    void rendererUpdateAtTime(scene::SCNSceneRenderer&, double) override {}

    void rendererDidApplyAnimationsAtTime(scene::SCNSceneRenderer&, double) override;

    void rendererWillRenderScene(scene::SCNSceneRenderer&, scene::SCNScene&, double) override {}

    void rendererDidRenderScene(scene::SCNSceneRenderer&, scene::SCNScene&, double) override {}

private:
    void setPlaying(bool plays);
    void beginRun();
    void scheduleTicks();
    void goHome();
    void replayTo(int frame);
    void replayTick();
    void startFrom(double time);
    /// The parked clock shows a change of the performance at once.
    void showChange();
    /// Puts the environment's floor under the content, as the user has laid it out.
    void settleGround() const;
    void fireTimeSignal() const;
    void reachEnd();
    void clearTechniques() const;

    ModelServices services;
    std::unique_ptr<foundation::SerialQueue> serialQueue_;
    image::Color currentBackgroundColor_;
    double duration_ = 8.0;
    double startCounter_ = 2.0;
    shared::FrameClock clock{startCounter_};
    std::unique_ptr<actions::ActionController> actionController_;
    audio::AudioPlayer audioPlayer_;
    std::unique_ptr<movie::MovieWriter> movieWriter_;
    std::vector<node::NodePtr> affectedNodes_;
    environments::SNEPtr sceneData_;
    foundation::Timer timer; ///< set while a run is in progress
    foundation::Timer blockingTimer;
    int currentSceneIndex_ = 0;
    bool blocking = false;
    scene::SCNSceneRenderer* sceneView_ = nullptr;
    std::atomic<bool> isPlaying_ = false;
    std::atomic<bool> onlyPlays = false;
    bool parked = false;
    bool isReplaying = false;
    std::optional<double> playhead_;
    std::optional<SilentReplay> replay;
    std::vector<actions::XACPtr> replayed; ///< the performance that `replay` plays
    foundation::Lifetime lifetime;
};

} // namespace zelvo::model
