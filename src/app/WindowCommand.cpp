// SPDX-License-Identifier: MIT
#include "app/Application.h"
#include "app/Commands.h"
#include "app/StopSignals.h"
#include "platform/foundation/Console.h"
#include "ui/qml/Views.h"

#include <QGuiApplication>
#include <QIcon>
#include <QLocale>
#include <QQuickWindow>
#include <QTranslator>

#include <array>
#include <cstdlib>

namespace zelvo::app {

namespace {

[[noreturn]] void endWithoutWindow(const std::string& why) {
    foundation::logLine("zelvo: " + why);
    std::_Exit(ExitStatus::kFailed);
}

[[nodiscard]] bool hasDisplay() {
    return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
           qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
}

/// Qt ends the process if it cannot reach the display. This tells the user why.
void endAtFatal(QtMsgType type, const QMessageLogContext&, const QString&) {
    if (type != QtFatalMsg)
        return;
    endWithoutWindow(
        "the display cannot be reached: DISPLAY or WAYLAND_DISPLAY names one that does not "
        "answer. To make a movie without a display, use zelvo perform FILE.");
}

/// Ends the application as if its window were closed. Called on the thread of StopSignals.
void quitFromOutside() {
    if (auto* const process = QCoreApplication::instance())
        QMetaObject::invokeMethod(process, &QCoreApplication::quit, Qt::QueuedConnection);
}

void endWithoutGraphics(const QString& why) {
    endWithoutWindow(
        "the window has no OpenGL 4.5, which the stage is drawn with (" + why.toStdString() +
        "). Movies can still be made with zelvo perform.");
}

} // namespace

int run(const WindowCommand& command) {
    if (!hasDisplay()) {
        endWithoutWindow(
            "there is no display to open a window on. To make a movie without one, use zelvo "
            "perform FILE (see zelvo --help).");
    }
    const StopSignals signals(&quitFromOutside);
    prepareGraphics();
    int argumentCount = 1;
    std::array name{'z', 'e', 'l', 'v', 'o', '\0'}; // Qt may write to it
    std::array<char*, 2> arguments{name.data(), nullptr};
    const auto before = qInstallMessageHandler(&endAtFatal);
    const QGuiApplication process(argumentCount, arguments.data());
    qInstallMessageHandler(before);
    QGuiApplication::setApplicationDisplayName("Zelvo");
    QGuiApplication::setDesktopFileName("zelvo");

    QTranslator words;
    if (words.load(QLocale(), "zelvo", "_", ":/zelvo/words"))
        QGuiApplication::installTranslator(&words);

    Application application(foundation::Folders::standard());
    QGuiApplication::setWindowIcon(QIcon(ui::iconFile("Zelvo")));
    QQuickWindow* window = application.window();
    if (window == nullptr)
        endWithoutWindow("the views of the window are damaged; install the program anew");
    QObject::connect(
        window,
        &QQuickWindow::sceneGraphError,
        [](QQuickWindow::SceneGraphError, const QString& why) { endWithoutGraphics(why); });
    QObject::connect(&application.main.stage, &ui::Stage::graphicsFailed, &endWithoutGraphics);
    application.show();
    if (command.showsTouches)
        application.main.toggleVisualizer();
    application.open(command.files);
    application.main.document.offerRecovery();
    const int status = QGuiApplication::exec();
    return signals.received() == 0 ? status : ExitStatus::kStopped + signals.received();
}

} // namespace zelvo::app
