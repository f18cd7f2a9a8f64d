// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/RunLoop.h"
#include "platform/scene/SCNSceneRenderer.h"
#include "ui/controls/Services.h"
#include "ui/main/DrawScale.h"
#include "ui/main/SceneRecognizers.h"

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <functional>
#include <optional>

namespace zelvo::ui {

/// The live stage without its window: the view that the model knows, its clock, its pace, and the
/// fingers on it.
///
///     askForFrame ──> animates, asks the window ──> frameShown ── rest of the interval ──┐
///         ^──────────────────────────────────────────────────────────────────────────────┘
///
/// What stands still is not drawn again and again, which leaves the machine to others.
///
/// The scene's clock follows the run loop's, whether a window shows it or not. Full pace while
/// something is performed or touched, half of it else. The scene changes on the main thread alone.
class Stage final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(double drawScale READ drawScale NOTIFY frameTaken)
    Q_PROPERTY(int framesShown READ framesShown NOTIFY frameTaken)

public:
    static constexpr double kFullPace = 1.0 / 60; ///< seconds a frame
    static constexpr double kRestPace = 1.0 / 30;
    static constexpr double kWithoutWindow = 0.1; ///< until the next frame where nothing is shown
    /// The most that the scene's clock goes on by in one frame: after a standstill nothing leaps.
    static constexpr double kMaxStep = 0.25;

    Stage(const Services& given, GestureDelegate& delegate);

    /// What the model shows its scene on. It draws nothing itself.
    scene::HeadlessView view;
    SceneRecognizers recognizers;

    struct Window {
        /// Asks for a picture of the scene as it stands; empty: there is no window.
        std::function<void()> requestFrame;
        /// What that would show (SCNView::pictureKey); empty: always something new.
        std::function<std::optional<std::uint64_t>()> pictureKey;
    };

    void setWindow(Window shownBy);

    /// The window's size is another: what stands still is to be drawn anew.
    void windowResized() { scale.nextShows(std::nullopt); }

    /// Whether the last picture shows the scene as it stands, as finely as it will be.
    [[nodiscard]] bool isDrawn() const { return scale.isDrawn(); }

    /// The picture that was asked for is on the screen.
    void frameShown();
    /// The window cannot draw. Said once.
    Q_INVOKABLE void failGraphics(const QString& why);

    [[nodiscard]] double drawScale() const { return scale.value(); }

    [[nodiscard]] int framesShown() const { return shown; }

Q_SIGNALS:
    void frameTaken();
    void graphicsFailed(const QString& why);

private:
    void askForFrame();
    void animate();
    [[nodiscard]] bool isBusy() const;
    [[nodiscard]] bool needsFrame();

    Services services;
    DrawScale scale;
    Window window;
    foundation::Timer next;
    double asked = 0;    ///< when the last picture was asked for
    double animated = 0; ///< when the scene was last animated
    bool isWaiting = false;
    int shown = 0;
};

} // namespace zelvo::ui
