// SPDX-License-Identifier: MIT
#include "Studio.h"

#include "platform/image/reading/ImageNamed.h"
#include "platform/scene/SCNCamera.h"
#include "platform/scene/SCNLight.h"

#include <glm/trigonometric.hpp>

#include <algorithm>
#include <cmath>

namespace zelvo::thumbnails {

namespace {

constexpr double kFieldOfView = 20; ///< degrees; narrow, so that a ball stays round
constexpr int kDetail = 4;          ///< drawn size over the picture's size
constexpr double kOversampling = 2; ///< of the drawn picture
constexpr float kLampIntensity = 1700;
constexpr float kDaylight = 1.3F;
constexpr double kTime = 2; ///< scene seconds; moving surfaces have then some contrast

scene::SCNNodePtr makeCamera() {
    auto node = std::make_shared<scene::SCNNode>();
    node->camera = std::make_shared<scene::SCNCamera>();
    node->camera->fieldOfView = kFieldOfView;
    node->camera->zNear = 1;
    node->camera->zFar = 10'000;
    node->camera->wantsHDR = true;
    node->camera->wantsExposureAdaptation = false;
    return node;
}

scene::SCNNodePtr makeLamp() {
    auto node = std::make_shared<scene::SCNNode>();
    node->light = std::make_shared<scene::SCNLight>();
    node->light->type = scene::SCNLightType::directional;
    node->light->intensity = kLampIntensity;
    node->setEulerAngles({-0.85F, -0.75F, 0});
    return node;
}

QImage viewOf(const image::Image& picture) {
    return {picture.pixels.data(), picture.width, picture.height, QImage::Format_RGBX8888};
}

/// Premultiplied colour is at most its opacity.
QRgb withAlpha(QRgb color, int alpha) {
    return qRgba(
        std::min(qRed(color), alpha),
        std::min(qGreen(color), alpha),
        std::min(qBlue(color), alpha),
        alpha);
}

/// The figure without its ground, from pictures on black and on white: a ground that shows through
/// differs between the two.
QImage cutOut(const QImage& onBlack, const QImage& onWhite) {
    QImage figure(onBlack.size(), QImage::Format_ARGB32_Premultiplied);
    const int ground = qGreen(onWhite.pixel(0, 0)) - qGreen(onBlack.pixel(0, 0));
    for (int y = 0; y < figure.height(); ++y) {
        for (int x = 0; x < figure.width(); ++x) {
            const QRgb black = onBlack.pixel(x, y);
            const int seen = qGreen(onWhite.pixel(x, y)) - qGreen(black);
            figure.setPixel(x, y, withAlpha(black, 255 - std::clamp(seen * 255 / ground, 0, 255)));
        }
    }
    return figure;
}

/// The smallest square around the middle of what is not transparent.
QRect squareAround(const QImage& figure) {
    QRect seen;
    for (int y = 0; y < figure.height(); ++y) {
        for (int x = 0; x < figure.width(); ++x) {
            if (qAlpha(figure.pixel(x, y)) > 0)
                seen |= QRect(x, y, 1, 1);
        }
    }
    const int side = std::max(seen.width(), seen.height());
    return {seen.center() - QPoint(side / 2, side / 2), QSize(side, side)};
}

} // namespace

Studio::Studio(render::SCNRenderer& drawing)
    : renderer(drawing)
    , scene(std::make_shared<scene::SCNScene>())
    , camera(makeCamera())
    , table(std::make_shared<scene::SCNNode>()) {
    scene->lightingEnvironment.setImage(image::requiredEnvironment("Environment001.jpg"));
    scene->lightingEnvironment.intensity = kDaylight;
    for (const scene::SCNNodePtr& node : {camera, makeLamp(), table})
        scene->rootNode()->addChildNode(node);
}

QImage Studio::photograph(const scene::SCNNodePtr& figure, int side) {
    table->addChildNode(figure);
    const auto box = table->boundingBox();
    const auto size = box.max - box.min;
    const float half = std::max(size.x, size.y) / 2;
    const auto distance =
        half / static_cast<float>(std::tan(glm::radians(kFieldOfView) / 2)) + size.z / 2;
    camera->position = (box.min + box.max) / 2.0F + glm::vec3(0, 0, distance);

    renderer.setScene(scene);
    renderer.pointOfView = camera;
    const auto shotOn = [this, side](float ground) {
        scene->background.contents = image::Color::white(ground);
        return renderer.snapshotAtTime(
            kTime, {kDetail * side, kDetail * side}, {.oversampling = kOversampling});
    };
    const QImage cut = cutOut(viewOf(shotOn(0)), viewOf(shotOn(1)));
    figure->removeFromParentNode();
    return cut.copy(squareAround(cut))
        .scaled(side, side, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

} // namespace zelvo::thumbnails
