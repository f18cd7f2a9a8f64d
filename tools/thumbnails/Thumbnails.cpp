// SPDX-License-Identifier: MIT
#include "Thumbnails.h"

#include "Studio.h"
#include "app/Engine.h"
#include "content/ImageMask.h"
#include "content/MediaShape.h"
#include "environments/Environments.h"
#include "look/XMAT.h"
#include "platform/foundation/TemporaryFolder.h"
#include "platform/scene/SCNShapes.h"
#include "shared/Thumbnail.h"

#include <fmt/format.h>

#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace zelvo::thumbnails {

using foundation::Result;
using ui::ThumbnailKind;

namespace {

// Pixels: three times the size in the strip, so that they are sharp on any display.
constexpr int kFigure = 84;
constexpr QSize kMask{120, 84};
constexpr render::Size kStage{150, 84};
constexpr double kCorner = 12; ///< radius
constexpr double kRim = 2;     ///< width

constexpr int kLeadIn = 45;        ///< steps until particles are seen
constexpr double kStep = 1.0 / 30; ///< seconds between updates of the scene

/// Writes pictures until one cannot be written.
class Album {
public:
    explicit Album(std::filesystem::path root)
        : folder(std::move(root)) {}

    void add(ThumbnailKind kind, std::string_view entry, const QImage& picture) {
        const auto file = folder / ui::thumbnailName(kind, entry);
        if (written && !picture.save(QString::fromStdString(file.string())))
            written = foundation::fail(
                foundation::Cause::unwritable, fmt::format("cannot write {}", file.string()));
    }

    [[nodiscard]] const Result<void>& result() const { return written; }

private:
    std::filesystem::path folder;
    Result<void> written;
};

QImage ballOf(Studio& studio, look::Surface surface, std::uint32_t color) {
    const auto material = look::makeSurface(surface);
    material->setColor(image::Color::hex(color));
    const auto ball = std::make_shared<scene::SCNNode>();
    const auto sphere = std::make_shared<scene::SCNSphere>(80);
    sphere->setSegmentCount(192);
    sphere->materials = {material};
    ball->geometry = sphere;
    return studio.photograph(ball, kFigure);
}

/// A thin bright edge inside the outline, so that a dark picture is seen on a dark button.
void addRim(QPainter& painter, const QPainterPath& outline) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setCompositionMode(QPainter::CompositionMode_SourceAtop);
    painter.strokePath(outline, QPen(QColor(255, 255, 255, 50), 2 * kRim));
}

/// Two balls as one: the second shows in the lower right half.
QImage halved(QImage first, const QImage& second) {
    QPainter painter(&first);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath half;
    half.addPolygon(QPolygonF({{kFigure, 0}, {kFigure, kFigure}, {0, kFigure}, {kFigure, 0}}));
    painter.setClipPath(half);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.drawImage(0, 0, second);
    return first;
}

void drawMaterials(Studio& studio, Album& album) {
    for (const look::PairRow& pair : look::kPairs) {
        QImage ball = ballOf(studio, pair.front, pair.sampleFront);
        if (pair.use == look::PairUse::textsOnly)
            ball = halved(std::move(ball), ballOf(studio, pair.band, pair.sampleBand));
        QPainter painter(&ball);
        QPainterPath outline;
        outline.addEllipse(ball.rect());
        addRim(painter, outline);
        painter.end();
        album.add(ThumbnailKind::material, pair.title, ball);
    }
}

void drawShapes(Studio& studio, Album& album) {
    const auto material = look::makeSurface(look::Surface::plain);
    material->setColor(image::Color::white(0.72F));
    for (const content::MediaShapePtr& shape : content::mediaShapes()) {
        if (shape->name == "None")
            continue;
        shape->applyMaterial(material);
        const auto turned = std::make_shared<scene::SCNNode>();
        turned->addChildNode(shape->node);
        turned->setEulerAngles({0.16F, -0.42F, 0});
        album.add(ThumbnailKind::shape, shape->name, studio.photograph(turned, kFigure));
    }
}

void drawMasks(Album& album) {
    for (const content::ImageMaskPtr& mask : content::imageMasks()) {
        const image::ImagePtr picture = mask->image();
        if (!picture)
            continue;
        // Black shows the image, so it becomes opaque white.
        const QImage source(
            picture->pixels.data(), picture->width, picture->height, QImage::Format_RGBA8888);
        const QImage shares = source.convertToFormat(QImage::Format_Grayscale8)
                                  .scaled(kMask, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        QImage figure(shares.size(), QImage::Format_ARGB32);
        for (int y = 0; y < figure.height(); ++y) {
            for (int x = 0; x < figure.width(); ++x)
                figure.setPixel(x, y, qRgba(255, 255, 255, 255 - qGray(shares.pixel(x, y))));
        }
        album.add(ThumbnailKind::mask, mask->name, figure);
    }
}

/// Shows only a white ball, in the environment's typical material.
void putBall(stage::Nodes& stage, const environments::SampleTitle& sample) {
    for (const node::NodePtr& node : stage.content()) {
        node->isVisible = node == stage.mediaNode;
        node->updateVisibility();
    }
    const auto& shapes = content::mediaShapes();
    stage.mediaNode->setShape(
        *std::ranges::find(shapes, "Sphere", [](const auto& shape) { return shape->name; }));
    stage.mediaNode->setCurrentMaterialName(sample.first);
    stage.mediaNode->setFrontColor(image::Color::white(1));
    stage.mediaNode->setLayoutPosition(glm::vec3(0));
}

QImage rounded(const image::Image& shot) {
    const QImage source(shot.pixels.data(), shot.width, shot.height, QImage::Format_RGBX8888);
    QImage picture(source.size(), QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath outline;
    outline.addRoundedRect(picture.rect(), kCorner, kCorner);
    painter.fillPath(outline, QBrush(source));
    addRim(painter, outline);
    return picture;
}

void drawEnvironments(render::SCNRenderer& renderer, app::Engine& engine, Album& album) {
    engine.model().setSceneView(&renderer);
    double time = 0;
    int index = 0;
    for (const environments::EnvironmentRow& environment : environments::kEnvironments) {
        engine.model().setCurrentBackgroundColor(image::Color::hex(environment.sample.background));
        engine.model().setScene(index++);
        putBall(engine.stage(), environment.sample);
        engine.runLoop.runFor(kLeadIn * kStep);
        for (int step = 0; step < kLeadIn; ++step) {
            renderer.update(time);
            time += kStep;
        }
        album.add(
            ThumbnailKind::environment,
            environment.name,
            rounded(renderer.snapshotAtTime(time, kStage, {.oversampling = 3})));
    }
}

} // namespace

Result<void> drawThumbnails(const std::filesystem::path& folder) {
    std::error_code error;
    std::filesystem::create_directories(folder / "thumbnails", error);
    auto renderer = render::SCNRenderer::make();
    if (!renderer)
        return tl::unexpected(renderer.error());
    const auto temporary =
        foundation::TemporaryFolder::make(foundation::Folders::standard().temporary);
    if (!temporary)
        return tl::unexpected(temporary.error());
    Album album(folder);
    Studio studio(**renderer);
    drawMaterials(studio, album);
    drawShapes(studio, album);
    drawMasks(album);
    foundation::VirtualRunLoop loop;
    app::Engine engine(loop, foundation::Folders::below(temporary->path()), 0);
    drawEnvironments(**renderer, engine, album);
    return album.result();
}

} // namespace zelvo::thumbnails
