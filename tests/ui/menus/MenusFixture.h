// SPDX-License-Identifier: MIT
#pragma once

#include "model/ModelFixture.h"
#include "ui/controls/Alerts.h"
#include "ui/controls/Services.h"

#include <memory>
#include <string>
#include <vector>

namespace zelvo::test {

/// The model and the objects that the menus need.
class MenusTest : public ModelTest {
protected:
    [[nodiscard]] foundation::VirtualRunLoop& loop() { return world.runLoop; }

    [[nodiscard]] actions::ActionController& controller() const { return model.actionController(); }

    /// Answers the current alert with the action of this title.
    void answer(const QString& title) {
        const auto offered = alerts.actions();
        for (int i = 0; i < offered.size(); ++i) {
            if (offered[i].title == title)
                return alerts.choose(i);
        }
        ADD_FAILURE() << "no " << title.toStdString();
    }

    ui::Alerts alerts;
    ui::Services services{model, world.runLoop, world.defaults, alerts};
};

} // namespace zelvo::test
