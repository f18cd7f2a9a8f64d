// SPDX-License-Identifier: MIT
#include "model/Model.h"

#include "content/ImageVideo.h"
#include "environments/SceneManager.h"
#include "model/DistanceFade.h"
#include "platform/foundation/Check.h"
#include "shared/Palette.h"
#include "shared/Signal.h"

#include <glm/geometric.hpp>

#include <algorithm>
#include <utility>

namespace zelvo::model {

using shared::FrameClock;

namespace {

constexpr double kBlockingTime = 1.0; ///< seconds
constexpr int kFirstScene = 2;

Model*& sharedModel() {
    static Model* model = nullptr;
    return model;
}

/// The video of the image node begins with the movie. An export waits for each picture; a live run
/// shows what is ready.
void followRun(content::VideoNodePlayer* video, int frame, media::AVPlayer::Patience patience) {
    if (video == nullptr || frame < 0)
        return;
    const double time = FrameClock::secondsOf(frame);
    if (frame == 0)
        video->play(time);
    video->updateAtTime(time, patience);
}

} // namespace

Model& Model::makeShared(ModelServices services) {
    CHECK(sharedModel() == nullptr, "the model is made once");
    // Never deleted: there is no orderly shutdown, and nothing is saved at exit.
    sharedModel() = std::make_unique<Model>(std::move(services)).release();
    return *sharedModel();
}

Model& Model::shared() {
    CHECK(sharedModel() != nullptr, "the model is asked for before start-up made it");
    return *sharedModel();
}

Model::Model(ModelServices given)
    : services(std::move(given))
    , serialQueue_(services.runLoop.makeSerialQueue("queuename"))
    , currentBackgroundColor_(ui::kPalette[ui::kDefaultBackgroundIndex])
    , audioPlayer_(
          services.runLoop, [this] { return duration_; }, services.makeAudioOutput)
    , affectedNodes_(services.nodes.content()) {
    actionController_ = std::make_unique<actions::ActionController>(*this, services.nodes);
    movieWriter_ =
        std::make_unique<movie::MovieWriter>(*this, services.folders, services.makeFrames);
    audioPlayer_.clearSong();
    setScene(kFirstScene);
    actionController_->deleteAll();
    ui::signals().undoStateSignal.subscribe(lifetime, [this] { showChange(); });
}

Model::~Model() {
    if (sceneView_ != nullptr)
        sceneView_->delegate = nullptr;
    serialQueue_.reset(); // its jobs read the clock
}

actions::ActionController& Model::actionController() const {
    CHECK(actionController_ != nullptr, "the model has no action controller");
    return *actionController_;
}

movie::MovieWriter& Model::movieWriter() const {
    CHECK(movieWriter_ != nullptr, "the model has no movie writer");
    return *movieWriter_;
}

void Model::setDuration(double seconds) {
    duration_ = std::max(seconds, kMinDuration);
    ui::signals().durationSignal.fire();
}

void Model::start() {
    stop(Reset::toStart);
    beginRun();
    if (isRecordingMovie())
        sceneData_->restartParticles();
    setPlaying(true);
    scheduleTicks();
}

void Model::beginRun() {
    actionController().markAllNotRun();
    blockingTimer.invalidate();
    blocking = false;
    clock.reset();
    for (const auto& text : {nodes().textNode1, nodes().textNode2})
        text->settle(); // so that every run of the performance shows the same
    settleGround();
}

void Model::scheduleTicks() {
    // In an export, ticks come as fast as frames are made; each is one step of the run loop's
    // clock.
    services.runLoop.setPacing(
        isRecordingMovie() ? foundation::Pacing::unpaced : foundation::Pacing::realTime);
    timer = services.runLoop.scheduleRepeating(FrameClock::kStep, [this] { runTimedCode(); });
}

void Model::stop(Reset reset) {
    setPlaying(false);
    timer.invalidate();
    services.runLoop.setPacing(foundation::Pacing::realTime);
    onlyPlays = false;
    playhead_.reset();
    if (reset == Reset::toStart) {
        clock.reset();
        fireTimeSignal();
    }
    goHome();
}

void Model::goHome() {
    parked = false;
    audioPlayer_.stop();
    clearTechniques();
    actionController().endRun();
    services.nodes.removeEffects();
    if (content::VideoNodePlayer* const video = content::videoOf(*services.nodes.imageNode))
        video->stop();
    replay.reset();
}

void Model::toggle() {
    if (onlyPlays) {
        togglePlaying();
    } else if (timer.isValid()) {
        const std::optional<double> back = playhead_;
        stop(Reset::toStart);
        if (back)
            seek(*back);
    } else if (playhead_) {
        startFrom(*playhead_ - kLeadIn);
    } else {
        start();
    }
}

void Model::togglePlaying() {
    if (timer.isValid()) {
        const double now = clock.time() - startCounter_;
        stop(Reset::toStart);
        seek(now);
        return;
    }
    onlyPlays = true; // already when the signal tells of the run
    startFrom(parked ? *playhead_ + FrameClock::kStep : playhead_.value_or(0));
}

void Model::startFrom(double time) {
    const int first = FrameClock::nearestFrame(std::max(time, -startCounter_));
    replayTo(first - 1);
    replay->handOver();
    parked = false;
    setPlaying(true);
    audioPlayer_.joinAt(FrameClock::secondsOf(first));
    scheduleTicks();
}

void Model::seek(double time) {
    if (isRecordingMovie())
        return;
    if (timer.isValid())
        stop(Reset::keepTime);
    const int frame = FrameClock::nearestFrame(std::clamp(time, 0.0, duration_));
    replayTo(frame);
    if (content::VideoNodePlayer* const video = content::videoOf(*services.nodes.imageNode))
        video->updateAtTime(FrameClock::secondsOf(frame), media::AVPlayer::Patience::waits);
    parked = true;
    playhead_ = FrameClock::secondsOf(frame);
    fireTimeSignal();
}

void Model::replayTo(int frame) {
    CHECK(sceneView_ != nullptr, "the stage is replayed without a view");
    const auto& performance = actionController().recordedActions();
    if (!parked || replayed != performance || clock.frame() > frame + 1) {
        goHome();
        beginRun();
        sceneData_->restartParticles();
        replayed = performance;
        replay.emplace([this] { replayTick(); });
    }
    isReplaying = true;
    replay->runUntil([&] { return clock.frame() > frame; });
    isReplaying = false;
}

void Model::replayTick() {
    const int frame = clock.frame();
    actionController().run(clock.time());
    clock.advance();
    const double time = FrameClock::secondsOf(frame);
    content::VideoNodePlayer* const video = content::videoOf(*services.nodes.imageNode);
    if (video != nullptr && frame == 0)
        video->play(time);
    sceneView_->update(time);
}

void Model::showChange() {
    services.runLoop.post(lifetime.guard([this] {
        if (parked && replayed != actionController().recordedActions())
            seek(*playhead_);
    }));
}

void Model::willPerform() {
    if (parked)
        goHome();
}

void Model::runTimedCode() {
    if (replay)
        replay->follow();
    const int frame = clock.frame();
    actionController().run(clock.time());
    clock.advance();
    fireTimeSignal();

    using Patience = media::AVPlayer::Patience;
    followRun(
        content::videoOf(*services.nodes.imageNode),
        frame,
        isRecordingMovie() ? Patience::waits : Patience::takesNearest);
    if (isRecordingMovie()) {
        movieWriter().renderFrame(frame);
        if (!isRecordingMovie())
            return; // the export has failed and has stopped the run
    } else {
        audioPlayer_.step(FrameClock::secondsOf(frame));
    }
    if (frame >= FrameClock::frameReaching(duration_))
        reachEnd();
}

void Model::reachEnd() {
    if (isRecordingMovie()) {
        movieWriter().finish();
        stop(Reset::toStart);
        return;
    }
    stop(Reset::keepTime);
    blocking = true;
    blockingTimer = services.runLoop.scheduleOnce(kBlockingTime, [this] { blocking = false; });
}

void Model::settleGround() const {
    if (const std::optional<float> lowest = services.nodes.lowestInLayout())
        sceneData_->setGround(*lowest);
}

void Model::setPlaying(bool plays) {
    isPlaying_ = plays;
    ui::signals().isPlayingSignal.fire(plays);
}

void Model::fireTimeSignal() const {
    // A tick advances the clock before it tells. A parked clock stands behind the frame that is shown.
    const double t = parked ? clock.time() - FrameClock::kStep : clock.time();
    const bool isCountIn = t <= startCounter_;
    ui::signals().timeSignal.fire({
        .time = t,
        .wholeFraction = t / (startCounter_ + duration_),
        .runFraction =
            isCountIn ? std::clamp(t / startCounter_, 0.0, 1.0) : (t - startCounter_) / duration_,
        .isCountIn = isCountIn,
        .startCounter = startCounter_,
        .isParked = parked,
    });
}

/// On both renderers, because an effect stays with the renderer on which it was held.
void Model::clearTechniques() const {
    for (scene::SCNSceneRenderer* renderer : {sceneView_, movieWriter().renderer()}) {
        if (renderer != nullptr)
            renderer->technique = nullptr;
    }
}

void Model::setCurrentBackgroundColor(const image::Color& color) {
    currentBackgroundColor_ = color;
    CHECK(sceneData_ != nullptr, "there is no scene to give a background");
    sceneData_->setBackground(color);
}

void Model::setScene(int index) {
    sceneData_ = environments::SceneManager::sceneData(index, services.runLoop);
    CHECK(sceneData_ != nullptr, "no scene has index {}", index);
    sceneData_->setBackground(currentBackgroundColor_);
    scene::SCNScene& scene = *sceneData_->scene;
    scene.setAttribute(FrameClock::kFramesPerSecond, "frameRate");
    scene.setAttribute(startCounter_, "startTime");
    for (const scene::SCNNodePtr& holder : services.nodes.holders()) {
        scene.rootNode()->addChildNode(holder);
    }
    services.nodes.cameraNode->camera = sceneData_->makeCamera();
    settleGround();
    attachScene(movie::SceneHome::screen);
    currentSceneIndex_ = index;
}

void Model::setSceneView(scene::SCNSceneRenderer* view) {
    if (sceneView_ != nullptr) {
        sceneView_->delegate = nullptr;
        if (sceneView_ != view)
            sceneView_->setScene(nullptr);
    }
    sceneView_ = view;
    if (view == nullptr)
        return;
    view->delegate = this;
    if (!isRecordingMovie())
        attachScene(movie::SceneHome::screen);
}

void Model::attachScene(movie::SceneHome home) {
    services.runLoop.post(lifetime.guard([this, home] {
        const bool isOnScreen = home == movie::SceneHome::screen;
        if (sceneView_ != nullptr)
            sceneView_->setScene(isOnScreen ? sceneData_->scene : nullptr);
        if (scene::SCNSceneRenderer* renderer = movieWriter().renderer(); renderer != nullptr) {
            renderer->delegate = this;
            renderer->setScene(isOnScreen ? nullptr : sceneData_->scene);
        }
    }));
}

scene::SCNSceneRenderer* Model::currentRenderer() const {
    scene::SCNSceneRenderer* renderer = movieWriter().renderer();
    if (renderer != nullptr && renderer->scene())
        return renderer;
    return sceneView_ != nullptr && sceneView_->scene() ? sceneView_ : nullptr;
}

bool Model::isRecordingMovie() const {
    return movieWriter().isRecording();
}

foundation::Result<void> Model::startMovie() const {
    return movieWriter().start();
}

void Model::cancelMovie() const {
    movieWriter().cancel();
}

std::optional<movie::MusicStretch> Model::music() const {
    if (!audioPlayer_.audioURL)
        return std::nullopt;
    return movie::MusicStretch{
        .file = *audioPlayer_.audioURL,
        .audioPreRoll = audioPlayer_.audioPreRoll,
        .audioIn = audioPlayer_.audioIn,
        .audioEnd = audioPlayer_.audioEnd,
        .fadeInDuration = audioPlayer_.fadeInDuration,
        .fadeOutDuration = audioPlayer_.fadeOutDuration,
        .fadeOutBeginDelay = audioPlayer_.fadeOutBeginDelay,
        .fadesIn = audio::hasFadeIn(audioPlayer_.fadeState),
        .fadesOut = audio::hasFadeOut(audioPlayer_.fadeState),
    };
}

void Model::showAlert(const std::string& title, const std::string& message) {
    if (services.showAlert)
        services.showAlert(title, message);
}

void Model::rendererDidApplyAnimationsAtTime(scene::SCNSceneRenderer&, double) {
    const stage::Nodes& stage = services.nodes;
    const auto fade = [](scene::SCNNode& node) {
        node.opacity = opacityAtDistance(glm::length(node.position.value()));
    };
    fade(*stage.mediaHolderNode);
    for (const node::NodePtr& node : stage.content())
        fade(*node);
    if (!isPlaying() && !parked && !isReplaying)
        settleGround();
}

} // namespace zelvo::model
