// SPDX-License-Identifier: MIT
#include "ui/qml/Views.h"

#include "ui/controls/Theme.h"
#include "ui/qml/FocusStack.h"
#include "ui/qml/PointerWatch.h"
#include "ui/qml/PressArea.h"
#include "ui/qml/TrueColorSink.h"

#include <QLoggingCategory>
#include <QQmlEngine>

// The macro names a function of the global namespace.
static void initResources() {
    Q_INIT_RESOURCE(views);
}

namespace zelvo::ui {

namespace {

/// Movies are shown with the libraries that also write them; the toolkit's other player would need
/// plugins of its own. It reports its search for decoders on the console, which nobody asked for.
void chooseMoviePlayer() {
    constexpr const char* kBackend = "QT_MEDIA_BACKEND";
    if (!qEnvironmentVariableIsSet(kBackend))
        qputenv(kBackend, "ffmpeg");
    if (!qEnvironmentVariableIsSet("QT_LOGGING_RULES"))
        QLoggingCategory::setFilterRules("default.debug=false\nqt.multimedia.*.debug=false");
}

} // namespace

void installViews() {
    initResources();
    chooseMoviePlayer();
    static Theme theme;
    QQmlEngine::setObjectOwnership(&theme, QQmlEngine::CppOwnership);
    qmlRegisterSingletonInstance("Zelvo", 1, 0, "Theme", &theme);
    static PointerWatch pointer;
    QQmlEngine::setObjectOwnership(&pointer, QQmlEngine::CppOwnership);
    qmlRegisterSingletonInstance("Zelvo", 1, 0, "Pointer", &pointer);
    qmlRegisterType<FocusStack>("Zelvo", 1, 0, "FocusStack");
    qmlRegisterType<PressArea>("Zelvo", 1, 0, "PressArea");
    qmlRegisterType<TrueColorSink>("Zelvo", 1, 0, "TrueColorSink");
}

} // namespace zelvo::ui
