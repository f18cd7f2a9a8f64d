// SPDX-License-Identifier: MIT
#include "ui/imports/SceneViewItem.h"

#include "platform/foundation/Console.h"
#include "ui/controls/ScenePicture.h"

#include <QOpenGLFramebufferObject>
#include <QQuickWindow>

#include <algorithm>
#include <cmath>
#include <memory>

namespace zelvo::ui {

namespace {

class SceneViewRenderer final : public QQuickFramebufferObject::Renderer {
protected:
    void synchronize(QQuickFramebufferObject* item) override {
        const SceneView* const shown = static_cast<SceneViewItem*>(item)->controller();
        if (shown == nullptr || hasFailed)
            return;
        if (const auto ready = picture.prepare(); !ready) {
            hasFailed = true;
            foundation::logLine(ready.error().message);
            return;
        }
        ScenePicture::attach(*picture.view(), shown->view);
        const double scale = shown->drawScale();
        const double pixels = item->window()->effectiveDevicePixelRatio() * std::min(scale, 1.0);
        const auto side = [pixels](double length) {
            return std::max(1, static_cast<int>(std::lround(length * pixels)));
        };
        picture.draw(
            {side(item->width()), side(item->height())},
            {.oversampling = std::max(scale, 1.0), .samples = 1});
    }

    QOpenGLFramebufferObject* createFramebufferObject(const QSize& size) override {
        return ScenePicture::makeTarget(size).release(); // the caller owns it
    }

    void render() override { picture.copyTo(*framebufferObject()); }

private:
    ScenePicture picture;
    bool hasFailed = false;
};

} // namespace

SceneViewItem::SceneViewItem(QQuickItem* parent)
    : QQuickFramebufferObject(parent) {}

SceneViewItem::~SceneViewItem() {
    if (shown != nullptr)
        shown->setWindow({});
}

void SceneViewItem::setController(SceneView* view) {
    if (view == shown)
        return;
    if (shown != nullptr)
        shown->setWindow({});
    shown = view;
    if (shown != nullptr)
        shown->setWindow([this] { update(); });
    Q_EMIT controllerChanged();
}

QQuickFramebufferObject::Renderer* SceneViewItem::createRenderer() const {
    return std::make_unique<SceneViewRenderer>().release(); // the scene graph owns it
}

void SceneViewItem::itemChange(ItemChange change, const ItemChangeData& data) {
    QQuickFramebufferObject::itemChange(change, data);
    if (change != ItemSceneChange || data.window == nullptr)
        return;
    // The signal comes on the window's drawing thread; the rest must run on this one.
    connect(
        data.window,
        &QQuickWindow::frameSwapped,
        this,
        [this] {
            if (shown != nullptr)
                shown->frameShown();
        },
        Qt::QueuedConnection);
}

} // namespace zelvo::ui
