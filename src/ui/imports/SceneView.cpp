// SPDX-License-Identifier: MIT
#include "ui/imports/SceneView.h"

#include "platform/render/CameraView.h"

#include <glm/gtc/constants.hpp>
#include <glm/gtc/quaternion.hpp>

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>

namespace zelvo::ui {

namespace {

constexpr float kSteepest = 1.45F; ///< radians; the camera does not go over the top
constexpr float kFarthest = 0.2F;  ///< closeness
constexpr float kNearest = 4;
constexpr double kWithoutWindow = 0.1; ///< seconds until the next frame, if nothing is shown

} // namespace

SceneView::SceneView(foundation::RunLoop& loop, float above, float distance)
    : runLoop(loop)
    , pivot(std::make_shared<scene::SCNNode>())
    , cameraNode(std::make_shared<scene::SCNNode>())
    , home(0, above, distance)
    , begun(loop.now()) {
    view.setScene(std::make_shared<scene::SCNScene>());
    view.scene()->rootNode()->addChildNode(pivot);
    addCamera();
    next = runLoop.scheduleOnce(0, [this] { askForFrame(); });
}

void SceneView::addCamera() {
    cameraNode->camera = std::make_shared<scene::SCNCamera>();
    cameraNode->camera->fieldOfView = 45;
    cameraNode->camera->zFar = 20000;
    cameraNode->camera->fStop = 5.1;
    pivot->addChildNode(cameraNode);
    view.pointOfView = cameraNode;
    placeCamera();
}

void SceneView::askForFrame() {
    asked = runLoop.now();
    if (animate)
        animate(asked - begun);
    isWaiting = static_cast<bool>(requestFrame);
    if (isWaiting)
        requestFrame();
    // Also if no answer comes, because the window is hidden.
    next = runLoop.scheduleOnce(kWithoutWindow, [this] { askForFrame(); });
}

void SceneView::frameShown() {
    if (!std::exchange(isWaiting, false))
        return;
    constexpr double kWeight = 0.2;
    const double took = runLoop.now() - asked;
    average += kWeight * (took - average);
    next = runLoop.scheduleOnce(std::max(kPace - took, took), [this] { askForFrame(); });
}

double SceneView::drawScale() const {
    constexpr double kSlow = 0.06;
    constexpr double kVerySlow = 0.15;
    constexpr double kHalf = 0.5;
    constexpr double kSmooth = 1.5;
    if (average > kVerySlow)
        return kHalf;
    return average > kSlow ? 1 : kSmooth;
}

void SceneView::setBackground(const QColor& color) {
    view.scene()->background.contents =
        image::Color{color.redF(), color.greenF(), color.blueF(), 1};
}

void SceneView::orbit(double right, double down) {
    yaw -= static_cast<float>(right) * glm::pi<float>();
    pitch =
        std::clamp(pitch - static_cast<float>(down) * glm::half_pi<float>(), -kSteepest, kSteepest);
    placeCamera();
}

void SceneView::zoom(double factor) {
    if (!std::isfinite(factor) || factor <= 0)
        return;
    closeness = std::clamp(closeness * static_cast<float>(factor), kFarthest, kNearest);
    placeCamera();
}

void SceneView::resetCamera() {
    yaw = 0;
    pitch = 0;
    closeness = 1;
    placeCamera();
}

void SceneView::placeCamera() {
    pivot->setOrientation(
        glm::angleAxis(yaw, glm::vec3(0, 1, 0)) * glm::angleAxis(pitch, glm::vec3(1, 0, 0)));
    cameraNode->position = home / closeness;
}

void SceneView::tap(QPointF place, QSizeF size) {
    if (!didTap || size.isEmpty())
        return;
    const auto aspect = static_cast<float>(size.width() / size.height());
    const glm::dvec2 share(place.x() / size.width(), place.y() / size.height());
    const auto camera =
        render::makeCameraView(cameraNode->worldTransform(), *cameraNode->camera, aspect);
    didTap(render::rayThrough(camera, glm::vec2(2 * share.x - 1, 1 - 2 * share.y)));
}

} // namespace zelvo::ui
