// SPDX-License-Identifier: MIT
#include "audio/AudioPlayer.h"

#include "platform/foundation/Check.h"
#include "platform/foundation/Folders.h"
#include "shared/FrameClock.h"

#include <algorithm>
#include <utility>

namespace zelvo::audio {

using shared::FrameClock;

std::optional<FadeState> fadeStateOf(int rawValue) {
    if (rawValue < 0 || rawValue > static_cast<int>(FadeState::fadeInOut))
        return std::nullopt;
    return static_cast<FadeState>(rawValue);
}

std::filesystem::path Track::url() const {
    const auto dot = trackName.find('.');
    CHECK(dot != std::string::npos, "the track name {} has no type", trackName);
    const auto name = trackName.substr(0, trackName.find('.', dot + 1));
    auto path = foundation::mainBundle().path(name);
    CHECK(!path.empty(), "the track {} does not exist", name);
    return path;
}

AudioPlayer::AudioPlayer(
    const foundation::RunLoop& runLoop,
    std::function<double()> durationOfMovie,
    media::AudioOutputFactory outputFactory)
    : loop(runLoop)
    , movieDuration(std::move(durationOfMovie))
    , makeOutput(std::move(outputFactory)) {}

void AudioPlayer::loadSong(
    std::optional<std::filesystem::path> url, std::optional<std::string> title) {
    audioURL = std::move(url);
    songTitle = std::move(title);
    audioPreRoll = 0.0;
    audioIn = 0.0;
    audioEnd = 0.0;
    totalDuration = 0.0;
    if (!audioURL) {
        avAudioPlayer.reset();
        return;
    }
    auto opened = media::AVAudioPlayer::open(*audioURL, loop, makeOutput ? makeOutput() : nullptr);
    if (opened)
        avAudioPlayer = std::move(*opened);
    if (!avAudioPlayer)
        return;
    totalDuration = avAudioPlayer->duration();
    audioEnd = std::min(totalDuration, movieDuration());
    avAudioPlayer->setNumberOfLoops(0);
    avAudioPlayer->prepareToPlay();
}

void AudioPlayer::clearSong() {
    loadSong(std::nullopt, std::nullopt);
}

void AudioPlayer::step(double t) {
    // In the movie, the music starts with the nearest frame; an earlier tick waits for that frame.
    const bool isInWindow = FrameClock::nearestFrame(t) >= FrameClock::nearestFrame(audioPreRoll) &&
                            t - audioPreRoll < FrameClock::kStep;
    if (!isPlaying && isInWindow && avAudioPlayer && !avAudioPlayer->isPlaying())
        startStretch();

    const double fadeOutStart = songEnd() - fadeOutDuration - fadeOutBeginDelay;
    if (hasFadeOut(fadeState) && !isFadingOut && fadeOutStart <= t) {
        if (avAudioPlayer)
            avAudioPlayer->setVolume(0.0F, fadeOutDuration);
        isFadingOut = true;
    }
    if (t >= songEnd())
        stop();
}

void AudioPlayer::startStretch() {
    isFadingOut = false;
    avAudioPlayer->prepareToPlay();
    // Start at the same sample as in the movie.
    avAudioPlayer->setCurrentTime(
        FrameClock::presentationTime(FrameClock::nearestFrame(audioIn)).seconds());
    avAudioPlayer->setVolume(0.0F);
    avAudioPlayer->play();
    avAudioPlayer->setVolume(1.0F, hasFadeIn(fadeState) ? fadeInDuration : 0.0);
    isPlaying = true;
}

void AudioPlayer::stop() {
    if (avAudioPlayer)
        avAudioPlayer->pause();
    isPlaying = false;
}

} // namespace zelvo::audio
