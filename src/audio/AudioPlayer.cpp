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
        startAt(audioPreRoll);
    if (isPlaying && songBrokeOff && avAudioPlayer->hasBrokenOff() &&
        !std::exchange(hasToldOfBreak, true))
        songBrokeOff();
    // The sound fades by itself, exact to the sample; ticks only follow.
    const double fadeOutStart = songEnd() - fadeOutDuration - fadeOutBeginDelay;
    isFadingOut = isFadingOut || (hasFadeOut(fadeState) && fadeOutStart <= t);
    if (t >= songEnd())
        stop();
    else if (isPlaying && fades() != sounding)
        startAt(t); // a fade or the end was changed meanwhile
}

shared::MusicFades AudioPlayer::fades() const {
    return {
        .begin = audioPreRoll,
        .end = songEnd(),
        .fadeInDuration = fadeInDuration,
        .fadeOutDuration = fadeOutDuration,
        .fadeOutBeginDelay = fadeOutBeginDelay,
        .fadesIn = hasFadeIn(fadeState),
        .fadesOut = hasFadeOut(fadeState)};
}

void AudioPlayer::joinAt(double t) {
    if (avAudioPlayer && t > audioPreRoll && t < songEnd())
        startAt(t);
}

void AudioPlayer::startAt(double t) {
    CHECK(avAudioPlayer != nullptr, "there is no song to start");
    hasToldOfBreak = false;
    // The same samples at the same time as in the movie.
    const auto onFrame = [](double seconds) {
        return FrameClock::presentationTime(FrameClock::nearestFrame(seconds)).seconds();
    };
    const double begin = onFrame(audioPreRoll);
    const double passed = std::max(t - audioPreRoll, 0.0);
    isFadingOut = false;
    sounding = fades();
    avAudioPlayer->setCurrentTime(std::max(onFrame(audioIn), 0.0) + passed);
    avAudioPlayer->setPassage(
        {.duration = onFrame(audioEnd - audioIn) - passed,
         .volumeAt = [volumes = shared::volumesOf(fades()), from = begin + passed](double seconds) {
             return volumes.volumeAt(from + seconds);
         }});
    avAudioPlayer->play();
    isPlaying = true;
}

void AudioPlayer::stop() {
    if (avAudioPlayer)
        avAudioPlayer->pause();
    isPlaying = false;
}

} // namespace zelvo::audio
