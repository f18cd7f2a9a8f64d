// SPDX-License-Identifier: MIT
#include "ui/audio/AudioViewController.h"

#include "audio/AudioPlayer.h"
#include "model/Model.h"
#include "shared/FrameClock.h"
#include "shared/Signal.h"
#include "ui/controls/Alerts.h"

#include <algorithm>
#include <array>
#include <utility>

namespace zelvo::ui {

using audio::AudioPlayer;
using audio::FadeState;
using shared::FrameClock;

namespace {

struct FadeFace {
    FadeState next; ///< after a press
    const char* image;
    const char* notice;
};

/// In the order of FadeState.
// clang-format off
constexpr auto kFadeFaces = std::to_array<FadeFace>({
    {FadeState::fadeIn,    "NoFade",    QT_TRANSLATE_NOOP("zelvo::ui::AudioViewController", "No Fade")    },
    {FadeState::fadeOut,   "FadeIn",    QT_TRANSLATE_NOOP("zelvo::ui::AudioViewController", "Fade In")    },
    {FadeState::fadeInOut, "FadeOut",   QT_TRANSLATE_NOOP("zelvo::ui::AudioViewController", "Fade Out")   },
    {FadeState::noFade,    "FadeInOut", QT_TRANSLATE_NOOP("zelvo::ui::AudioViewController", "Fade In+Out")},
});

// clang-format on

const FadeFace& faceOf(FadeState state) {
    return kFadeFaces.at(static_cast<std::size_t>(state));
}

} // namespace

AudioViewController::AudioViewController(const Services& given, QObject* parent)
    : QObject(parent)
    , playPauseButton({}, [this] { togglePlay(); })
    , importButton(
          {.image = "Import", .name = tr("Choose the music")}, [this] { showAudioImport(); })
    , trashButton(
          {.image = "Trashcan", .name = tr("Remove the music")}, [this] { deleteAudioAction(); })
    , fadesButton({}, [this] { toggleFades(); })
    , services(given) {
    signals().isPlayingSignal.subscribe(lifetime, [this](bool isPlaying) {
        if (isPlaying)
            stop();
    });
    stop();
    showFades();
}

AudioViewController::~AudioViewController() {
    stop();
}

void AudioViewController::setSongTitleClosure(std::function<void(const QString&)> closure) {
    songTitleClosure = std::move(closure);
    refresh();
}

void AudioViewController::assignSong(const std::filesystem::path& url, const std::string& title) {
    stop();
    services.model.audioPlayer().loadSong(url, title);
    refresh();
}

void AudioViewController::refresh() {
    const AudioPlayer& player = services.model.audioPlayer();
    if (songTitleClosure)
        songTitleClosure(QString::fromStdString(player.songTitle.value_or("")));
    trashButton.setEnabled(hasSong());
    Q_EMIT songChanged();
    Q_EMIT layoutChanged();
}

void AudioViewController::togglePlay() {
    // While the lead-in is still silent, a press starts over.
    if (services.model.audioPlayer().isPlaying)
        return stop();
    if (services.model.isPlaying())
        services.model.stop(model::Reset::toStart);
    currentTimerTime_ = 0;
    playTimer = services.runLoop.scheduleRepeating(FrameClock::kStep, [this] { timerFunc(); });
    playPauseButton.setFace({.image = "PauseButton", .name = tr("Stop the music")});
    Q_EMIT progressChanged();
}

void AudioViewController::timerFunc() {
    AudioPlayer& player = services.model.audioPlayer();
    player.step(currentTimerTime_);
    if (player.songEnd() <= currentTimerTime_)
        return stop();
    currentTimerTime_ += FrameClock::kStep;
    Q_EMIT progressChanged();
}

void AudioViewController::stop() {
    playTimer.invalidate();
    services.model.audioPlayer().stop();
    playPauseButton.setFace({.image = "PlayButton", .name = tr("Play the music")});
    Q_EMIT progressChanged();
}

void AudioViewController::toggleFades() {
    FadeState& state = services.model.audioPlayer().fadeState;
    state = faceOf(state).next;
    signals().messageSignal.fire(tr(faceOf(state).notice).toStdString());
    showFades();
}

void AudioViewController::showFades() {
    const FadeFace& face = faceOf(services.model.audioPlayer().fadeState);
    fadesButton.setFace({.image = face.image, .name = tr(face.notice)});
}

void AudioViewController::showAudioImport() {
    stop();
}

void AudioViewController::deleteAudioAction() {
    stop();
    services.alerts.show(
        {.title = tr("Remove Audio?").toStdString(),
         .actions = {
             {.title = tr("Yes").toStdString(),
              .role = AlertRole::destructive,
              .handler = lifetime.guard([this] {
                  services.model.audioPlayer().clearSong();
                  refresh();
              })},
             {.title = tr("Cancel").toStdString(), .role = AlertRole::cancel}}});
}

void AudioViewController::beginDrag(Part part, double x) {
    if (part != Part::end)
        stop();
    const AudioPlayer& player = services.model.audioPlayer();
    drag = {part, x, player.audioIn, player.audioEnd, player.audioPreRoll};
}

void AudioViewController::dragTo(double x) {
    if (drag)
        move(*drag, x - drag->second);
}

void AudioViewController::endDrag() {
    drag.reset();
}

void AudioViewController::nudge(Part part, double seconds) {
    beginDrag(part, 0);
    dragTo(seconds);
    endDrag();
}

void AudioViewController::moveToLimit(Part part, bool isLast) {
    const AudioPlayer& player = services.model.audioPlayer();
    const double far = std::max(player.totalDuration, player.audioPreRoll);
    if (part == Part::stretch && isLast)
        return nudge(part, services.model.duration() - player.songEnd());
    nudge(part, isLast ? far : -far);
}

void AudioViewController::move(const Drag& from, double seconds) {
    AudioPlayer& player = services.model.audioPlayer();
    switch (from.part) {
    case Part::stretch:
        player.audioPreRoll = std::max(from.audioPreRoll + seconds, 0.0);
        break;
    case Part::start:
        player.audioIn =
            std::min(player.audioEnd - kLeastStretch, std::max(from.audioIn + seconds, 0.0));
        break;
    case Part::end:
        player.audioEnd = std::min(
            player.totalDuration,
            std::max(player.audioIn + kLeastStretch, from.audioEnd + seconds));
        break;
    }
    Q_EMIT layoutChanged();
}

bool AudioViewController::hasSong() const {
    return services.model.audioPlayer().audioURL.has_value();
}

QUrl AudioViewController::song() const {
    const auto& url = services.model.audioPlayer().audioURL;
    return url ? QUrl::fromLocalFile(QString::fromStdString(url->string())) : QUrl();
}

double AudioViewController::totalDuration() const {
    return services.model.audioPlayer().totalDuration;
}

double AudioViewController::audioPreRoll() const {
    return services.model.audioPlayer().audioPreRoll;
}

double AudioViewController::audioIn() const {
    return services.model.audioPlayer().audioIn;
}

double AudioViewController::audioEnd() const {
    return services.model.audioPlayer().audioEnd;
}

double AudioViewController::movieDuration() const {
    return services.model.duration();
}

} // namespace zelvo::ui
