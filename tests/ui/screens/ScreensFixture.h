// SPDX-License-Identifier: MIT
#pragma once

#include "model/ModelFixture.h"
#include "ui/controls/Alerts.h"
#include "ui/controls/Services.h"

#include <string>

namespace zelvo::test {

/// The model and the objects that the screens need.
class ScreenTest : public ModelTest {
protected:
    /// Adds a record to the performance.
    void record(const std::string& title, double time, int identifier, bool isRow = true) {
        const auto xac = std::make_shared<actions::XAC>();
        xac->time = time;
        xac->xacFunc = [] {};
        xac->identifier = identifier;
        xac->title = title;
        xac->registerUndo = isRow;
        model.actionController().append(xac);
    }

    [[nodiscard]] foundation::VirtualRunLoop& loop() { return world.runLoop; }

    ui::Alerts alerts;
    ui::Services services{model, world.runLoop, world.defaults, alerts};
};

} // namespace zelvo::test
