// SPDX-License-Identifier: MIT
#include "ui/controls/ScenePicture.h"

#include "platform/render/SCNView.h"

#include <QOpenGLContext>
#include <QOpenGLFramebufferObject>
#include <QOpenGLFunctions>

#include <utility>

namespace zelvo::ui {

ScenePicture::ScenePicture() = default;

ScenePicture::~ScenePicture() = default;

foundation::Result<void> ScenePicture::prepare() {
    if (view_)
        return {};
    auto made = render::SCNView::make();
    if (!made)
        return tl::unexpected(made.error());
    view_ = *std::move(made);
    return {};
}

void ScenePicture::attach(render::SCNView& view, const scene::SCNSceneRenderer& shown) {
    view.setScene(shown.scene());
    view.pointOfView = shown.pointOfView;
    view.technique = shown.technique;
}

QSize ScenePicture::size() const {
    return picture ? picture->size() : QSize();
}

void ScenePicture::draw(const QSize& pixels, const render::DrawQuality& quality) {
    if (size() != pixels)
        picture = makeTarget(pixels);
    view_->quality = quality;
    view_->draw(
        {.framebuffer = picture->handle(),
         .size = {pixels.width(), pixels.height()},
         .rows = render::RowOrder::topFirst});
}

std::unique_ptr<QOpenGLFramebufferObject> ScenePicture::makeTarget(const QSize& size) {
    // Without alpha, because the picture covers everything behind it.
    constexpr unsigned kRgb8 = 0x8051;
    QOpenGLFramebufferObjectFormat format;
    format.setInternalTextureFormat(kRgb8);
    return std::make_unique<QOpenGLFramebufferObject>(size, format);
}

void ScenePicture::copyTo(QOpenGLFramebufferObject& target) const {
    if (picture) {
        QOpenGLFramebufferObject::blitFramebuffer(
            &target, picture.get(), GL_COLOR_BUFFER_BIT, GL_LINEAR);
        target.bind();
        return;
    }
    QOpenGLFunctions& gl = *QOpenGLContext::currentContext()->functions();
    gl.glClearColor(0, 0, 0, 1);
    gl.glClear(GL_COLOR_BUFFER_BIT);
}

} // namespace zelvo::ui
