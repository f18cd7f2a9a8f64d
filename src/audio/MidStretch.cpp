// SPDX-License-Identifier: MIT
#include "audio/MidStretch.h"

#include "audio/AudioPlayer.h"
#include "shared/FrameClock.h"

namespace zelvo::audio {

void startMidStretch(AudioPlayer& player, double t) {
    // In its first frame, `step` starts it.
    const bool isWithin =
        t >= player.audioPreRoll + shared::FrameClock::kStep && t < player.songEnd();
    if (isWithin && !player.isPlaying && player.avAudioPlayer)
        player.startAt(t);
}

} // namespace zelvo::audio
