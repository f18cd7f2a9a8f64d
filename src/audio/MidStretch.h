// SPDX-License-Identifier: MIT
#pragma once

namespace zelvo::audio {

class AudioPlayer;

/// Starts the music in the middle of its stretch, as loud as a run from the beginning has it there.
/// `step` goes on from `t`. Does nothing in the stretch's first frame, which `step` handles, outside of
/// it, and while the music plays.
void startMidStretch(AudioPlayer& player, double t);

} // namespace zelvo::audio
