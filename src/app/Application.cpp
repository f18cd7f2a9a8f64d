// SPDX-License-Identifier: MIT
#include "app/Application.h"

#include "app/Commands.h"
#include "app/Stopwatch.h"
#include "app/WindowPlace.h"
#include "export/RendererFrames.h"
#include "platform/foundation/Console.h"
#include "platform/foundation/Random.h"
#include "platform/foundation/TemporaryFolder.h"
#include "platform/media/AVAudioSession.h"
#include "platform/media/AudioOutput.h"
#include "ui/qml/Views.h"

#include <QEvent>
#include <QGuiApplication>
#include <QQuickWindow>
#include <QScreen>
#include <QSurfaceFormat>

#include <cstdlib>
#include <random>
#include <string>

namespace zelvo::app {

namespace {

/// The value is the list x, y, width, height, "window", or only "full".
constexpr const char* kWindowKey = "WindowPlace";

/// An error is only logged: the program also runs without sound.
[[nodiscard]] bool activateSound() {
    using media::AVAudioSession;
    auto session = AVAudioSession::setCategory(
        AVAudioSession::kCategoryPlayback, AVAudioSession::kModeDefault);
    if (session)
        session = AVAudioSession::activate();
    if (!session)
        foundation::logLine("AudioSession Error: " + session.error().message);
    return session.has_value();
}

[[nodiscard]] QRect placeFrom(const std::vector<std::string>& kept) {
    if (kept.size() != 5)
        return {};
    const auto number = [&kept](std::size_t i) { return QString::fromStdString(kept[i]).toInt(); };
    return {number(0), number(1), number(2), number(3)};
}

[[nodiscard]] QList<QRect> screens() {
    QList<QRect> all;
    for (const QScreen* const screen : QGuiApplication::screens())
        all.append(screen->availableGeometry());
    return all;
}

/// Needs a visible window, because only then the window manager has added its frame.
void keepFrameOnScreen(QQuickWindow& window) {
    const QRect whole = whollyShown(window.geometry(), window.frameMargins(), screens());
    if (window.windowStates() == Qt::WindowNoState && whole != window.geometry())
        window.setGeometry(whole);
}

} // namespace

Application::Application(const foundation::Folders& folders)
    : folders_(folders)
    , defaults(folders_.config / "defaults.json")
    , fontManager(fonts, folders_)
    , nodes(surroundings())
    , model_(modelServices(folders_))
    , hasSound(activateSound())
    , main({model_, runLoop_, defaults, alerts, fontManager, folders_}) {
    foundation::TemporaryFolder::removeLeftovers(folders.temporary);
    ui::installViews();
    engine.setInitialProperties({{"main", QVariant::fromValue(&main)}});
    engine.load(ui::viewUrl("Main"));
    if (QQuickWindow* shown = window()) {
        main.visualizer.watch(shown);
        main.document.watch(shown);
        gate = std::make_unique<ui::FrameGate>(*shown, runLoop_);
    }
}

Application::~Application() {
    keepWindowPlace();
    // Closed screens are still about to be deleted, and some stop their sound then: the model must live.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

Application::ClosedScreens::~ClosedScreens() {
    QCoreApplication::
        processEvents(); // a screen is deleted two turns of the loop after it is closed
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

node::Surroundings Application::surroundings() {
    foundation::seedRandom(std::random_device{}()); // before the first particles
    fontManager.registerBuiltIns(foundation::mainBundle());
    return {
        &fonts,
        &defaults,
        &runLoop_,
        [this](const std::string& title, const std::string& message) {
            alerts.showAlert(title, message);
        },
        node::DeviceIdiom::tablet};
}

model::ModelServices Application::modelServices(const foundation::Folders& folders) {
    return {
        .runLoop = runLoop_,
        .nodes = nodes,
        .folders = folders,
        .makeFrames = [] { return movie::makeRendererFrames(&stopwatchSeconds); },
        .makeAudioOutput = &media::makeSystemAudioOutput,
        .showAlert =
            [this](const std::string& title, const std::string& message) {
                alerts.showAlert(title, message);
            }};
}

QQuickWindow* Application::window() const {
    const auto roots = engine.rootObjects();
    return roots.isEmpty() ? nullptr : qobject_cast<QQuickWindow*>(roots.first());
}

void Application::show() {
    QQuickWindow* shown = window();
    if (shown == nullptr)
        return;
    const auto kept = defaults.strings(kWindowKey).value_or(std::vector<std::string>{});
    const QRect place = placeFrom(kept);
    const QRect whole =
        whollyShown(place.isValid() ? place : QRect({}, shown->size()), {}, screens());
    shown->setMinimumSize(shown->minimumSize().boundedTo(whole.size()));
    if (place.isValid())
        shown->setGeometry(whole);
    else
        shown->resize(whole.size());
    QObject::connect(
        shown,
        &QQuickWindow::frameSwapped,
        shown,
        [shown] { keepFrameOnScreen(*shown); },
        static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::SingleShotConnection));
    if (!kept.empty() && kept.back() == "full") {
        shown->showFullScreen();
    } else {
        shown->show();
    }
}

void Application::keepWindowPlace() {
    const QQuickWindow* shown = window();
    if (shown == nullptr)
        return;
    const QRect place = shown->geometry();
    const bool isFull = shown->windowState() == Qt::WindowFullScreen;
    if (isFull) { // the place outside full screen is not known
        defaults.set(kWindowKey, std::vector<std::string>{"full"});
        return;
    }
    defaults.set(
        kWindowKey,
        std::vector<std::string>{
            std::to_string(place.x()),
            std::to_string(place.y()),
            std::to_string(place.width()),
            std::to_string(place.height()),
            "window"});
}

void Application::open(const std::vector<std::filesystem::path>& files) {
    (void)main.open(files);
}

void prepareGraphics() {
    QSurfaceFormat format = QSurfaceFormat::defaultFormat();
    format.setVersion(4, 5);
    format.setProfile(QSurfaceFormat::CoreProfile);
    QSurfaceFormat::setDefaultFormat(format);
    QQuickWindow::setGraphicsApi(QSGRendererInterface::OpenGL);
}

} // namespace zelvo::app
