// SPDX-License-Identifier: MIT
#include "ui/screens/TemplatesController.h"

#include <utility>

namespace zelvo::ui {

TemplatesController::TemplatesController(Chosen call)
    : chosen(std::move(call)) {}

void TemplatesController::choose(int row) {
    if (!chosen || row < 0 || row >= rows_.rowCount({}))
        return;
    const auto performance = TemplateRows::fileOf(row);
    const bool isEmptyStage = row == 0;
    if (performance.empty() && !isEmptyStage) {
        failure_ = tr("This template is missing. Install the program anew.");
        Q_EMIT failureChanged();
        return;
    }
    // A double press must not begin twice.
    std::exchange(chosen, {})(performance);
}

void TemplatesController::dismissViewController() {
    Q_EMIT dismissed();
}

} // namespace zelvo::ui
