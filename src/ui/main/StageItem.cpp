// SPDX-License-Identifier: MIT
#include "ui/main/StageItem.h"

#include "platform/render/SCNView.h"
#include "ui/controls/ScenePicture.h"
#include "ui/main/Stage.h"

#include <QNativeGestureEvent>
#include <QOpenGLFramebufferObject>
#include <QQuickWindow>
#include <qqml.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>

namespace zelvo::ui {

namespace {

constexpr int kMouse = -1; ///< as the number of a finger
constexpr float kDegreesADelta = 1.0f / 8;
constexpr float kDegreesAPixel = 0.5f; ///< for touchpads that report pixels

/// The turn of the wheel in degrees.
[[nodiscard]] float turnOf(const QWheelEvent& event) {
    if (!event.pixelDelta().isNull())
        return static_cast<float>(event.pixelDelta().y()) * kDegreesAPixel;
    return static_cast<float>(event.angleDelta().y()) * kDegreesADelta;
}

[[nodiscard]] glm::vec2 vec(QPointF place) {
    return {static_cast<float>(place.x()), static_cast<float>(place.y())};
}

/// Draws into its own picture while the main thread waits. The window shows this picture, also
/// after the scene has moved to an export.
class StageRenderer final : public QQuickFramebufferObject::Renderer {
protected:
    void synchronize(QQuickFramebufferObject* item) override {
        auto* shown = static_cast<StageItem*>(item);
        Stage* stage = shown->stage();
        if (stage == nullptr || !stage->view.scene() || hasFailed || !isReady(*stage))
            return;
        ScenePicture::attach(*picture.view(), stage->view);
        shown->setDrawnBy(picture.view());
        const double scale = stage->drawScale();
        const double pixels = item->window()->effectiveDevicePixelRatio() * std::min(scale, 1.0);
        const QSize size(
            std::max(1, static_cast<int>(std::lround(item->width() * pixels))),
            std::max(1, static_cast<int>(std::lround(item->height() * pixels))));
        if (picture.size() != size || !stage->isDrawn())
            picture.draw(
                size,
                {.oversampling = std::max(scale, 1.0), .samples = 1, .detail = stage->detail()});
    }

    QOpenGLFramebufferObject* createFramebufferObject(const QSize& size) override {
        return ScenePicture::makeTarget(size).release(); // the caller owns it
    }

    void render() override { picture.copyTo(*framebufferObject()); }

private:
    bool isReady(Stage& stage) {
        const auto ready = picture.prepare();
        hasFailed = !ready;
        if (hasFailed)
            QMetaObject::invokeMethod(
                &stage,
                "failGraphics",
                Qt::QueuedConnection,
                Q_ARG(QString, QString::fromStdString(ready.error().message)));
        return !hasFailed;
    }

    ScenePicture picture;
    bool hasFailed = false;
};

} // namespace

StageItem::StageItem(QQuickItem* parent)
    : QQuickFramebufferObject(parent) {
    setAcceptedMouseButtons(Qt::LeftButton);
    setAcceptTouchEvents(true);
    setAcceptHoverEvents(true);
}

StageItem::~StageItem() {
    if (stage_ != nullptr)
        stage_->setWindow({});
}

void StageItem::setStage(Stage* stage) {
    if (stage == stage_)
        return;
    stage_ = stage;
    if (stage_ != nullptr) {
        stage_->setWindow(
            {.requestFrame = [this] { update(); }, .pictureKey = [this] { return pictureKey(); }});
        stage_->recognizers.setViewSize(vec({width(), height()}));
    }
    Q_EMIT stageChanged();
}

QQuickFramebufferObject::Renderer* StageItem::createRenderer() const {
    return std::make_unique<StageRenderer>().release(); // the scene graph owns it
}

void StageItem::itemChange(ItemChange change, const ItemChangeData& data) {
    QQuickFramebufferObject::itemChange(change, data);
    if (change == ItemDevicePixelRatioHasChanged && stage_ != nullptr)
        stage_->windowResized();
    if (change != ItemSceneChange || data.window == nullptr)
        return;
    // The signal comes on the window's drawing thread; the rest must run on this one.
    connect(
        data.window,
        &QQuickWindow::frameSwapped,
        this,
        [this] {
            if (stage_ != nullptr)
                stage_->frameShown();
        },
        Qt::QueuedConnection);
}

void StageItem::geometryChange(const QRectF& now, const QRectF& before) {
    QQuickFramebufferObject::geometryChange(now, before);
    if (stage_ == nullptr)
        return;
    stage_->recognizers.setViewSize(vec({now.width(), now.height()}));
    stage_->windowResized();
}

std::optional<std::uint64_t> StageItem::pictureKey() const {
    const std::shared_ptr<render::SCNView> view = drawnBy.lock();
    if (!view || height() <= 0)
        return std::nullopt;
    ScenePicture::attach(*view, stage_->view);
    return view->pictureKey(width() / height());
}

bool StageItem::event(QEvent* event) {
    if (event->type() != QEvent::NativeGesture || stage_ == nullptr)
        return QQuickFramebufferObject::event(event);
    const auto& gesture = static_cast<const QNativeGestureEvent&>(*event);
    SceneRecognizers& recognizers = stage_->recognizers;
    switch (gesture.gestureType()) {
    // a swipe begins in the same way, so a pinch starts only when it grows
    case Qt::BeginNativeGesture:
        return true;
    case Qt::ZoomNativeGesture:
        recognizers.growPinch(static_cast<float>(gesture.value()), vec(gesture.position()));
        return true;
    case Qt::EndNativeGesture:
        recognizers.endPinch();
        return true;
    default:
        return QQuickFramebufferObject::event(event);
    }
}

void StageItem::touchEvent(QTouchEvent* event) {
    if (stage_ == nullptr)
        return;
    SceneRecognizers& recognizers = stage_->recognizers;
    if (event->type() == QEvent::TouchCancel) {
        recognizers.cancel();
        return;
    }
    for (const QEventPoint& point : event->points()) {
        const glm::vec2 place = vec(point.position());
        switch (point.state()) {
        case QEventPoint::Pressed:
            recognizers.press(point.id(), place);
            break;
        case QEventPoint::Updated:
            recognizers.move(point.id(), place);
            break;
        case QEventPoint::Released:
            recognizers.release(point.id(), place);
            break;
        default:
            break;
        }
    }
    event->accept();
}

void StageItem::mousePressEvent(QMouseEvent* event) {
    if (stage_ != nullptr)
        stage_->recognizers.press(kMouse, vec(event->position()));
}

void StageItem::mouseMoveEvent(QMouseEvent* event) {
    if (stage_ != nullptr)
        stage_->recognizers.move(kMouse, vec(event->position()));
}

void StageItem::mouseReleaseEvent(QMouseEvent* event) {
    if (stage_ != nullptr)
        stage_->recognizers.release(kMouse, vec(event->position()));
}

void StageItem::mouseUngrabEvent() {
    if (stage_ != nullptr)
        stage_->recognizers.cancel();
}

void StageItem::touchUngrabEvent() {
    if (stage_ != nullptr)
        stage_->recognizers.cancel();
}

void StageItem::wheelEvent(QWheelEvent* event) {
    const bool isPinch = stage_ != nullptr && event->modifiers().testFlag(Qt::ControlModifier);
    if (!isPinch) {
        event->ignore();
        return;
    }
    stage_->recognizers.turnWheel(turnOf(*event), vec(event->position()));
    event->accept();
}

void StageItem::hoverMoveEvent(QHoverEvent* event) {
    event->ignore(); // items below may follow the pointer, too
    if (stage_ != nullptr)
        stage_->recognizers.hover(vec(event->position()));
}

void StageItem::hoverLeaveEvent(QHoverEvent* event) {
    event->ignore();
    if (stage_ != nullptr)
        stage_->recognizers.hover(std::nullopt);
}

} // namespace zelvo::ui
