// SPDX-License-Identifier: MIT
#include "core/model/HeadlessViewClock.h"

#include "ui/shared/Signal.h"

namespace zelvo::core {

HeadlessViewClock::HeadlessViewClock(scene::SCNSceneRenderer& view) {
    ui::signals().timeSignal.subscribe(subscription, [&view](const ui::TimeState& state) {
        if (view.scene())
            view.update(state.time - state.startCounter);
    });
}

} // namespace zelvo::core
