// SPDX-License-Identifier: MIT
#include "ui/qml/Views.h"

#include "ui/controls/Theme.h"

#include <QQmlEngine>

// The macro names a function of the global namespace.
static void initResources() {
    Q_INIT_RESOURCE(views);
}

namespace zelvo::ui {

void installViews() {
    initResources();
    static Theme theme;
    QQmlEngine::setObjectOwnership(&theme, QQmlEngine::CppOwnership);
    qmlRegisterSingletonInstance("Zelvo", 1, 0, "Theme", &theme);
}

} // namespace zelvo::ui
