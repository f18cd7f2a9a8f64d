// SPDX-License-Identifier: MIT
#include "shared/MusicFades.h"

#include "shared/FrameClock.h"

namespace zelvo::shared {

namespace {

media::CMTime sixtieths(double seconds) {
    return FrameClock::presentationTime(FrameClock::nearestFrame(seconds));
}

} // namespace

media::AVMutableAudioMixInputParameters volumesOf(const MusicFades& music) {
    media::AVMutableAudioMixInputParameters volumes;
    volumes.setVolume(1.0, sixtieths(0));
    const double fadeOutStart = music.end - music.fadeOutDuration - music.fadeOutBeginDelay;
    const double fadeInEnd = music.begin + music.fadeInDuration;
    if (music.fadesIn && (!music.fadesOut || fadeOutStart >= fadeInEnd)) {
        volumes.setVolume(0.0, sixtieths(0));
        volumes.setVolumeRamp(0.0, 1.0, {sixtieths(music.begin), sixtieths(music.fadeInDuration)});
    }
    if (music.fadesOut) {
        volumes.setVolumeRamp(
            1.0, 0.0, {sixtieths(fadeOutStart), sixtieths(music.fadeOutDuration)});
    }
    return volumes;
}

} // namespace zelvo::shared
