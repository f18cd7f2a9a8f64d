// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/render/DrawQuality.h"
#include "platform/scene/SCNSceneRenderer.h"

#include <QSize>

#include <memory>

class QOpenGLFramebufferObject;

namespace zelvo::render {
class SCNView;
}

namespace zelvo::ui {

/// The picture of a scene in a window: drawn while the main thread waits, shown also later, when the
/// scene has gone elsewhere. On the window's drawing thread only, with its OpenGL context.
class ScenePicture {
public:
    ScenePicture();
    ~ScenePicture();
    ScenePicture(const ScenePicture&) = delete;
    ScenePicture& operator=(const ScenePicture&) = delete;

    /// Error: `unavailable`, if the window has no OpenGL that can draw it.
    [[nodiscard]] foundation::Result<void> prepare();

    /// The view that draws; null before `prepare`.
    [[nodiscard]] const std::shared_ptr<render::SCNView>& view() const { return view_; }

    /// Shows in the view what another renderer shows.
    static void attach(render::SCNView& view, const scene::SCNSceneRenderer& shown);

    /// In pixels; invalid: nothing has been drawn.
    [[nodiscard]] QSize size() const;
    void draw(const QSize& pixels, const render::DrawQuality& quality);

    /// Makes the framebuffer of an item.
    [[nodiscard]] static std::unique_ptr<QOpenGLFramebufferObject> makeTarget(const QSize& size);
    /// Shows the picture there; black, if there is none.
    void copyTo(QOpenGLFramebufferObject& target) const;

private:
    std::shared_ptr<render::SCNView> view_;
    std::unique_ptr<QOpenGLFramebufferObject> picture;
};

} // namespace zelvo::ui
