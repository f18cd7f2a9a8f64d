// SPDX-License-Identifier: MIT
// The preview of the audio editor: it plays the music at the times of the movie, without the stage.
#include "audio/AudioPlayer.h"
#include "audio/MidStretch.h"
#include "model/Model.h"
#include "shared/FrameClock.h"
#include "ui/audio/AudioViewController.h"

namespace zelvo::ui {

using audio::AudioPlayer;
using shared::FrameClock;

void AudioViewController::togglePlay() {
    if (services.model.audioPlayer().isPlaying)
        stop();
    else
        startPreview(0); // also while the lead-in is silent: then it begins again
}

void AudioViewController::seekPreview(double movieTime) {
    startPreview(movieTime);
}

void AudioViewController::startPreview(double movieTime) {
    if (services.model.isPlaying())
        services.model.stop(model::Reset::toStart);
    services.model.audioPlayer().stop();
    checkSong();
    currentTimerTime_ = movieTime;
    startedAt = services.runLoop.now() - movieTime;
    audio::startMidStretch(services.model.audioPlayer(), movieTime);
    playTimer = services.runLoop.scheduleRepeating(FrameClock::kStep, [this] { timerFunc(); });
    playPauseButton.setFace({.image = "PauseButton", .name = tr("Stop the music")});
    Q_EMIT progressChanged();
}

/// Where calls of the timer were missed, the ticks are made up for, so that the line keeps up with
/// the sound. If the sound begins late, the line waits for it.
void AudioViewController::timerFunc() {
    const AudioPlayer& player = services.model.audioPlayer();
    const double now = services.runLoop.now() - startedAt;
    const bool wasPlaying = player.isPlaying;
    do {
        tick();
    } while (isPreviewing() && player.isPlaying == wasPlaying &&
             currentTimerTime_ + FrameClock::kStep <= now);
    if (player.isPlaying && !wasPlaying)
        startedAt = services.runLoop.now() - currentTimerTime_;
    Q_EMIT progressChanged();
}

void AudioViewController::tick() {
    AudioPlayer& player = services.model.audioPlayer();
    player.step(currentTimerTime_);
    if (player.songEnd() <= currentTimerTime_)
        return stop();
    currentTimerTime_ += FrameClock::kStep;
}

void AudioViewController::stop() {
    playTimer.invalidate();
    services.model.audioPlayer().stop();
    showIdle();
    Q_EMIT progressChanged();
}

void AudioViewController::showIdle() {
    playPauseButton.setFace({.image = "PlayButton", .name = tr("Play the music")});
}

} // namespace zelvo::ui
