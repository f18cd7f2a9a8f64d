// SPDX-License-Identifier: MIT
#include "ui/screens/ExportProgressView.h"

#include "platform/foundation/RunLoop.h"
#include "shared/Signal.h"

namespace zelvo::ui {

ExportProgressView::ExportProgressView(const Services& given)
    : services(given) {
    signals().timeSignal.subscribe(listening, [this](const TimeState& time) {
        services.runLoop.post([this, done = time.wholeFraction, guard = std::weak_ptr(listening)] {
            if (guard.expired() || currentProgress > done)
                return;
            currentProgress = done;
            Q_EMIT changed();
        });
    });
}

} // namespace zelvo::ui
