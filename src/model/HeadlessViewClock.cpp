// SPDX-License-Identifier: MIT
#include "model/HeadlessViewClock.h"

#include "model/Model.h"
#include "shared/Signal.h"

namespace zelvo::core {

HeadlessViewClock::HeadlessViewClock(scene::SCNSceneRenderer& view) {
    ui::signals().timeSignal.subscribe(subscription, [&view](const ui::TimeState& state) {
        // The signal tells the next tick's time; the frame to be seen is that of the tick under
        // way.
        if (view.scene())
            view.update(state.time - Model::kStep - state.startCounter);
    });
}

} // namespace zelvo::core
