// SPDX-License-Identifier: MIT
#pragma once

#include "platform/media/AVMutableAudioMix.h"

namespace zelvo::shared {

/// When the music of a movie sounds, and how it fades. In seconds; begin and end are movie times.
struct MusicFades {
    double begin = 0;
    double end = 0;
    double fadeInDuration = 0;
    double fadeOutDuration = 0;
    double fadeOutBeginDelay = 0; ///< the fade-out ends this long before the end
    bool fadesIn = false;
    bool fadesOut = false;

    friend bool operator==(const MusicFades&, const MusicFades&) = default;
};

/// The volume over the movie's time, for a live run and the movie alike. Fades begin on frames. If the
/// two fades would overlap, there is no fade-in.
[[nodiscard]] media::AVMutableAudioMixInputParameters volumesOf(const MusicFades& music);

} // namespace zelvo::shared
