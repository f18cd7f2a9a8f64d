// SPDX-License-Identifier: MIT
#include "ui/main/Guidance.h"

#include "model/Model.h"
#include "platform/foundation/RunLoop.h"
#include "shared/Signal.h"

#include <utility>

namespace zelvo::ui {

Guidance::Guidance(const Services& given, QObject* parent)
    : QObject(parent)
    , services(given) {
    const auto tell = [this] {
        services.runLoop.post(lifetime.guard([this] { Q_EMIT changed(); }));
    };
    signals().undoStateSignal.subscribe(lifetime, tell);
    signals().isPlayingSignal.subscribe(lifetime, [tell](bool) { tell(); });
}

void Guidance::setPerforming(bool isOn) {
    if (std::exchange(isPerforming, isOn) != isOn)
        Q_EMIT changed();
}

void Guidance::pressedIdly() {
    if (services.model.isPlaying()) {
        if (!std::exchange(hasSaidWhilePlaying, true))
            signals().messageSignal.fire(
                tr("Not recorded: this run only plays. Space stops it and records").toStdString());
    } else if (!std::exchange(hasSaid, true)) {
        signals().messageSignal.fire(
            tr("Not recorded: start the clock with Space, then press").toStdString());
    }
}

bool Guidance::canPutBack() const {
    const model::Model& model = services.model;
    return isPerforming && !model.isPlaying() && model.actionController().canPutBack();
}

void Guidance::putBack() const {
    if (canPutBack())
        services.model.actionController().putBack();
}

QString Guidance::text() const {
    const model::Model& model = services.model;
    if (canPutBack())
        return model.actionController().recordedActions().empty() ? tr("All actions are deleted")
                                                                  : tr("Actions are deleted");
    if (model.isPlaying() || !model.actionController().recordedActions().empty())
        return {};
    return isPerforming ? tr("Press Space, then the buttons while the clock runs")
                        : tr("Style the stage, then go to Actions to perform");
}

} // namespace zelvo::ui
