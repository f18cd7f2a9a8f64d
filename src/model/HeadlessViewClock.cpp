// SPDX-License-Identifier: MIT
#include "model/HeadlessViewClock.h"

#include "shared/FrameClock.h"
#include "shared/Signal.h"

namespace zelvo::core {

HeadlessViewClock::HeadlessViewClock(scene::SCNSceneRenderer& view) {
    ui::signals().timeSignal.subscribe(subscription, [&view](const ui::TimeState& state) {
        // The signal tells the next tick's time; the frame to be seen is that of the tick under
        // way.
        if (!view.scene())
            return;
        const int next = shared::FrameClock::nearestFrame(state.time - state.startCounter);
        view.update(shared::FrameClock::secondsOf(next - 1));
    });
}

} // namespace zelvo::core
