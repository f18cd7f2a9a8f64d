// SPDX-License-Identifier: MIT
#pragma once

#include "content/FontManager.h"
#include "model/Model.h"
#include "platform/foundation/Folders.h"
#include "platform/foundation/RunLoop.h"
#include "platform/foundation/UserDefaults.h"
#include "platform/text/FontRegistry.h"
#include "stage/Nodes.h"
#include "ui/controls/Alerts.h"
#include "ui/main/FrameGate.h"
#include "ui/main/MainViewController.h"

#include <QQmlApplicationEngine>

#include <filesystem>
#include <memory>
#include <vector>

class QQuickWindow;

namespace zelvo::app {

/// The program with its window, in real time. Its parts start in this order: settings, fonts,
/// stage, model, sound, main screen. Needs a QGuiApplication; only one Application can exist at a
/// time.
class Application {
public:
    explicit Application(const foundation::Folders& folders);
    ~Application();
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;

private:
    foundation::Folders folders_;
    foundation::WallRunLoop runLoop_;
    foundation::UserDefaults defaults;
    ui::Alerts alerts;
    text::FontRegistry fonts;
    content::FontManager fontManager;
    stage::Nodes nodes;
    model::Model model_;
    bool hasSound; ///< stands here because sound must start before the main screen

    /// Deletes the screens that `main` has closed at its end, as they use the model.
    struct ClosedScreens {
        ClosedScreens() = default;
        ~ClosedScreens();
        ClosedScreens(const ClosedScreens&) = delete;
        ClosedScreens& operator=(const ClosedScreens&) = delete;
    } closedScreens;

public:
    ui::MainViewController main;

    [[nodiscard]] model::Model& model() { return model_; }

    [[nodiscard]] foundation::RunLoop& runLoop() { return runLoop_; }

    /// Null if the views could not be loaded; the console then shows the errors.
    [[nodiscard]] QQuickWindow* window() const;

    /// Shows the window in its place of last time, moved if it would not fit on a screen now.
    void show();
    /// Opens files as if the desktop had passed them to the program.
    void open(const std::vector<std::filesystem::path>& files);

private:
    [[nodiscard]] node::Surroundings surroundings();
    [[nodiscard]] model::ModelServices modelServices(const foundation::Folders& folders);
    void keepWindowPlace();

    std::unique_ptr<ui::FrameGate> gate;
    QQmlApplicationEngine engine;
};

/// Requests the OpenGL version for the window. Call it before the QGuiApplication is made.
void prepareGraphics();

} // namespace zelvo::app
