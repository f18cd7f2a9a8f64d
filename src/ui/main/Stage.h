// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/RunLoop.h"
#include "platform/render/DrawQuality.h"
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

/// The live stage without its window: the view that the model uses, its clock, its frame rate, and
/// gestures.
///
///     askForFrame ──> animates, asks the window ──> frameShown ── rest of the interval ──┐
///         ^──────────────────────────────────────────────────────────────────────────────┘
///
/// A picture that does not change is not drawn again, so that other programs get the processor.
///
/// The scene's clock follows the run loop's, with and without a window. Full frame rate while
/// something is performed or touched, otherwise half of it. The scene changes only on the main
/// thread.
class Stage final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(double drawScale READ drawScale NOTIFY frameTaken)
    Q_PROPERTY(int framesShown READ framesShown NOTIFY frameTaken)

public:
    static constexpr double kFullPace = 1.0 / 60; ///< seconds a frame
    static constexpr double kRestPace = 1.0 / 30;
    static constexpr double kWithoutWindow = 0.1; ///< until the next frame, if nothing is shown
    /// The largest step of the scene's clock in one frame: nothing jumps after a delay.
    static constexpr double kMaxStep = 0.25;

    Stage(const Services& given, GestureDelegate& delegate);

    /// The view that the model uses. It draws nothing itself.
    scene::HeadlessView view;
    SceneRecognizers recognizers;

    struct Window {
        /// Requests a picture of the current scene; empty: there is no window.
        std::function<void()> requestFrame;
        /// What it would show (SCNView::pictureKey); empty: always different.
        std::function<std::optional<std::uint64_t>()> pictureKey;
    };

    void setWindow(Window shownBy);

    /// The window has a new size: a picture must be drawn, even if nothing else changes.
    void windowResized() { scale.nextShows(std::nullopt); }

    /// Whether the last picture shows the current scene in its final quality.
    [[nodiscard]] bool isDrawn() const { return scale.isDrawn(); }

    /// The requested picture is on the screen.
    void frameShown();
    /// The window cannot draw. Reported once.
    Q_INVOKABLE void failGraphics(const QString& why);

    [[nodiscard]] double drawScale() const { return scale.value(); }

    [[nodiscard]] render::Detail detail() const {
        return scale.isAtRest() ? render::Detail::full : render::Detail::moving;
    }

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
    double asked = 0;    ///< when the last picture was requested
    double animated = 0; ///< when the scene was last animated
    bool isWaiting = false;
    int shown = 0;
};

} // namespace zelvo::ui
