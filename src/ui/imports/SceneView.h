// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/RunLoop.h"
#include "platform/geometry/Ray.h"
#include "platform/scene/SCNSceneRenderer.h"

#include <QColor>
#include <QObject>
#include <QPointF>
#include <QSizeF>
#include <QtQml/qqmlregistration.h>

#include <functional>
#include <utility>

namespace zelvo::ui {

/// A scene of its own beside the stage, seen by a camera that the user moves around its middle.
///
/// It leaves at least half of the time to the stage: after a frame that took long it waits as long
/// again. The clock of transactions is the stage's, so actions and transactions do not run here;
/// `animate` moves what moves.
class SceneView final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")

public:
    static constexpr double kPace = 1.0 / 30; ///< seconds a frame, at least

    /// The camera is `distance` away from the middle, and `above` it, in scene units.
    SceneView(foundation::RunLoop& loop, float above, float distance);

    /// What is shown; has a scene and a camera from the start.
    scene::HeadlessView view;
    /// Called before each frame with the seconds since the first one. May be empty.
    std::function<void(double time)> animate;
    /// Called with the place of a tap. May be empty.
    std::function<void(const geometry::Ray&)> didTap;

    /// Requests a picture from the window; empty: there is none.
    void setWindow(std::function<void()> request) { requestFrame = std::move(request); }

    /// The picture is on the screen.
    void frameShown();
    /// Drawn size over shown size. Below 1 if frames take long.
    [[nodiscard]] double drawScale() const;

    Q_INVOKABLE void setBackground(const QColor& color);

    // --- camera control
    /// Goes around the middle by these shares of a view's size.
    Q_INVOKABLE void orbit(double right, double down);
    /// Above 1: comes closer.
    Q_INVOKABLE void zoom(double factor);
    Q_INVOKABLE void resetCamera();
    Q_INVOKABLE void tap(QPointF place, QSizeF size);

private:
    void askForFrame();
    void placeCamera();
    void addCamera();

    foundation::RunLoop& runLoop;
    std::function<void()> requestFrame;
    scene::SCNNodePtr pivot; ///< turns the camera around the middle
    scene::SCNNodePtr cameraNode;
    glm::vec3 home;
    float yaw = 0; ///< radians
    float pitch = 0;
    float closeness = 1;
    foundation::Timer next;
    double begun;       ///< when the first frame was requested
    double asked = 0;   ///< when the last one was
    double average = 0; ///< seconds a frame takes, weighted to the newest
    bool isWaiting = false;
};

} // namespace zelvo::ui
