// SPDX-License-Identifier: MIT
#include "ui/qml/Views.h"

#include "ui/qml/Spoken.h"

#include <QLoggingCategory>

#include <array>

// The registration function of each module; the build generates them without a header.
// clang-format off
// NOLINTBEGIN(readability-identifier-naming): generated names
extern void qml_register_types_Zelvo();
extern void qml_register_types_Zelvo_Controls();
extern void qml_register_types_Zelvo_Menus();
extern void qml_register_types_Zelvo_Imports();
extern void qml_register_types_Zelvo_Audio();
extern void qml_register_types_Zelvo_Layouter();
extern void qml_register_types_Zelvo_Screens();
extern void qml_register_types_Zelvo_Documents();
extern void qml_register_types_Zelvo_Timeline();
extern void qml_register_types_Zelvo_Main();
// NOLINTEND(readability-identifier-naming)

// clang-format on

namespace zelvo::ui {

namespace {

/// Names the registration functions here, because the linker drops parts of a static library that
/// nobody uses.
void keepModules() {
    using Register = void (*)();
    const std::array<Register, 10> modules{
        &qml_register_types_Zelvo,
        &qml_register_types_Zelvo_Controls,
        &qml_register_types_Zelvo_Menus,
        &qml_register_types_Zelvo_Imports,
        &qml_register_types_Zelvo_Audio,
        &qml_register_types_Zelvo_Layouter,
        &qml_register_types_Zelvo_Screens,
        &qml_register_types_Zelvo_Documents,
        &qml_register_types_Zelvo_Timeline,
        &qml_register_types_Zelvo_Main};
    for (const Register module : modules) {
        volatile Register kept = module; // volatile: the compiler must not drop it either
        static_cast<void>(kept);
    }
}

/// Plays movies with the libraries that also write them. Qt's other player would need plugins of
/// its own. Also hides the player's messages about its search for decoders.
void chooseMoviePlayer() {
    constexpr const char* kBackend = "QT_MEDIA_BACKEND";
    if (!qEnvironmentVariableIsSet(kBackend))
        qputenv(kBackend, "ffmpeg");
    if (!qEnvironmentVariableIsSet("QT_LOGGING_RULES"))
        QLoggingCategory::setFilterRules("default.debug=false\nqt.multimedia.*.debug=false");
}

} // namespace

void installViews() {
    keepModules();
    chooseMoviePlayer();
    Spoken::install();
}

QUrl viewUrl(const QString& name) {
    return {QStringLiteral("qrc:/qt-project.org/imports/Zelvo/%1.qml").arg(name)};
}

QString iconFile(const QString& name) {
    return QStringLiteral(":/qt-project.org/imports/Zelvo/icons/%1.svg").arg(name);
}

} // namespace zelvo::ui
