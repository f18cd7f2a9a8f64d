// SPDX-License-Identifier: MIT
#include "model/HeadlessViewClock.h"

#include "shared/FrameClock.h"
#include "shared/Signal.h"

namespace zelvo::model {

HeadlessViewClock::HeadlessViewClock(scene::SCNSceneRenderer& view) {
    ui::signals().timeSignal.subscribe(lifetime, [&view](const ui::TimeState& state) {
        // The signal has the time of the next tick, but the frame to show is that of the current
        // tick.
        if (!view.scene() || state.isParked)
            return;
        const int next = shared::FrameClock::nearestFrame(state.time - state.startCounter);
        view.update(shared::FrameClock::secondsOf(next - 1));
    });
}

} // namespace zelvo::model
