// SPDX-License-Identifier: MIT
#pragma once

#include "app/Application.h"
#include "support/TemporaryFolder.h"
#include "support/ViewSearch.h"
#include "ui/layouter/LayouterMenu.h"
#include "ui/menus/ActionsMenu.h"

#include <gtest/gtest.h>

#include <QQuickWindow>
#include <QTest>

namespace zelvo::test {

/// Waits, as software graphics on a busy machine take their time.
template <class Condition>
[[nodiscard]] bool soon(const Condition& happens, int patience = 60'000 /* milliseconds */) {
    return QTest::qWaitFor(happens, patience);
}

/// The whole program in a real window, with a home folder of its own.
class WindowFixture : public testing::Test {
protected:
    WindowFixture() {
        window.resize(1280, 720);
        application.show();
        window.requestActivate();
    }

    [[nodiscard]] bool isDrawn() {
        return soon([this] { return application.main.stage.framesShown() > 0; });
    }

    /// The stage is drawn, has faded in, and the texts have flown in. On a slow machine the flight
    /// takes longer than the wait for the fade.
    [[nodiscard]] bool isReady() {
        return isDrawn() && soon([this] { return application.main.sceneAlpha() == 1; }) &&
               soon(
                   [this] { return model.nodes().textNode1->presentedPosition() == glm::vec3(0); });
    }

    /// The view of a controller; null while there is none.
    [[nodiscard]] QQuickItem*
    view(const QObject* controller, const char* property = "controller") const {
        return viewOf(window.contentItem(), controller, property);
    }

    template <class Kind> Kind* panel() { return qobject_cast<Kind*>(application.main.panel()); }

    TemporaryFolder folder;
    app::Application application{foundation::Folders::below(folder.path())};
    QQuickWindow& window = *application.window();
    model::Model& model = application.model();
};

} // namespace zelvo::test
