// SPDX-License-Identifier: MIT
#pragma once

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

/// The system on the wall clock, with its window. Starts up in the program's order: settings,
/// fonts, stage, model, sound, main screen. Needs a QGuiApplication; one at a time.
class Application {
public:
    explicit Application(const foundation::Folders& folders);
    ~Application();
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;

private:
    foundation::WallRunLoop runLoop_;
    foundation::UserDefaults defaults;
    ui::Alerts alerts;
    text::FontRegistry fonts;
    stage::Nodes nodes;
    model::Model model_;
    bool hasSound; ///< before the main screen comes up

public:
    ui::MainViewController main;

    [[nodiscard]] model::Model& model() { return model_; }

    [[nodiscard]] foundation::RunLoop& runLoop() { return runLoop_; }

    /// Null where the views are broken; what is wrong with them is on the console.
    [[nodiscard]] QQuickWindow* window() const;

    /// Where the window stood when the program last ended, kept to the screens there are.
    void show();
    /// Hands files over as the system does.
    void open(const std::vector<std::filesystem::path>& files);

private:
    [[nodiscard]] node::Surroundings surroundings();
    [[nodiscard]] model::ModelServices modelServices(const foundation::Folders& folders);
    void keepWindowPlace();

    std::unique_ptr<ui::FrameGate> gate;
    QQmlApplicationEngine engine;
};

/// Before the QGuiApplication: which graphics the window asks for.
void prepareGraphics();

} // namespace zelvo::app
