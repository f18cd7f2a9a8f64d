// SPDX-License-Identifier: MIT
#include "audio/MidStretch.h"

#include "audio/AudioPlayer.h"
#include "shared/FrameClock.h"

#include <algorithm>

namespace zelvo::audio {

using shared::FrameClock;

namespace {

/// How far a fade has come, 0 to 1. A fade without a duration is complete at once.
double shareOf(double passed, double duration) {
    return duration > 0.0 ? std::clamp(passed / duration, 0.0, 1.0) : 1.0;
}

/// Not before the music: until then there is nothing to fade.
double fadeOutStart(const AudioPlayer& player) {
    return std::max(
        player.songEnd() - player.fadeOutDuration - player.fadeOutBeginDelay, player.audioPreRoll);
}

double fadeInAt(const AudioPlayer& player, double t) {
    return hasFadeIn(player.fadeState) ? shareOf(t - player.audioPreRoll, player.fadeInDuration)
                                       : 1.0;
}

bool isFadingOutAt(const AudioPlayer& player, double t) {
    return hasFadeOut(player.fadeState) && t >= fadeOutStart(player);
}

} // namespace

double volumeAt(const AudioPlayer& player, double t) {
    if (!isFadingOutAt(player, t))
        return fadeInAt(player, t);
    const double start = fadeOutStart(player);
    return fadeInAt(player, start) * (1.0 - shareOf(t - start, player.fadeOutDuration));
}

void startMidStretch(AudioPlayer& player, double t) {
    // In its first frame, `step` starts it.
    const bool isWithin = t >= player.audioPreRoll + FrameClock::kStep && t < player.songEnd();
    if (!isWithin || player.isPlaying || !player.avAudioPlayer)
        return;
    media::AVAudioPlayer& song = *player.avAudioPlayer;
    const auto begin = FrameClock::presentationTime(FrameClock::nearestFrame(player.audioIn));
    song.setCurrentTime(std::max(begin.seconds(), 0.0) + t - player.audioPreRoll);
    song.setVolume(static_cast<float>(volumeAt(player, t)));
    song.play();
    player.isFadingOut = isFadingOutAt(player, t);
    const double end = player.isFadingOut ? fadeOutStart(player) + player.fadeOutDuration
                                          : player.audioPreRoll + player.fadeInDuration;
    const bool isFading = player.isFadingOut || hasFadeIn(player.fadeState);
    if (isFading && end > t)
        song.setVolume(player.isFadingOut ? 0.0F : 1.0F, end - t);
    player.isPlaying = true;
}

} // namespace zelvo::audio
