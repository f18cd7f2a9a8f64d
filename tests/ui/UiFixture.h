// SPDX-License-Identifier: MIT
#pragma once

#include "model/ModelFixture.h"
#include "ui/controls/Alerts.h"
#include "ui/controls/Services.h"

#include <memory>
#include <string>

namespace zelvo::test {

/// The model with what the controllers of the window are built of.
class UiTest : public ModelTest {
protected:
    [[nodiscard]] foundation::VirtualRunLoop& loop() { return world.runLoop; }

    [[nodiscard]] actions::ActionController& controller() const { return model.actionController(); }

    /// Puts a record into the performance.
    void record(const std::string& title, double time, int identifier, bool isRow = true) {
        const auto xac = std::make_shared<actions::XAC>();
        xac->time = time;
        xac->xacFunc = [] {};
        xac->identifier = identifier;
        xac->title = title;
        xac->registerUndo = isRow;
        controller().append(xac);
    }

    /// Answers the alert on show with the choice of this title.
    void answer(const QString& title) {
        const auto offered = alerts.actions();
        for (int i = 0; i < offered.size(); ++i) {
            if (offered[i].title == title)
                return alerts.choose(i);
        }
        ADD_FAILURE() << "no " << title.toStdString();
    }

    ui::Alerts alerts;
    ui::Services services{model, world.runLoop, world.defaults, alerts, fontManager, folders};
};

} // namespace zelvo::test
