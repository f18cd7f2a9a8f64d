// SPDX-License-Identifier: MIT
#include "ui/screens/ExportProgressView.h"

#include "platform/foundation/RunLoop.h"
#include "shared/Signal.h"

namespace zelvo::ui {

ExportProgressView::ExportProgressView(const Services& given)
    : services(given) {
    signals().timeSignal.subscribe(lifetime, [this](const TimeState& time) {
        services.runLoop.post(lifetime.guard([this, done = time.wholeFraction] {
            if (currentProgress > done)
                return;
            currentProgress = done;
            Q_EMIT changed();
        }));
    });
}

} // namespace zelvo::ui
