// SPDX-License-Identifier: MIT
#pragma once

#include "platform/scene/SCNScene.h"
#include "platform/scene/SCNTechnique.h"

namespace zelvo::scene {

class SCNSceneRenderer;

/// Told of the stages of each frame, on the thread that draws.
class SCNSceneRendererDelegate {
public:
    virtual ~SCNSceneRendererDelegate() = default;
    virtual void rendererUpdateAtTime(SCNSceneRenderer& renderer, double time) = 0;
    virtual void rendererDidApplyAnimationsAtTime(SCNSceneRenderer& renderer, double time) = 0;
    virtual void
    rendererWillRenderScene(SCNSceneRenderer& renderer, SCNScene& scene, double time) = 0;
    virtual void
    rendererDidRenderScene(SCNSceneRenderer& renderer, SCNScene& scene, double time) = 0;
};

/// What shows a scene: the on-screen view, the offscreen renderer of an export, or neither
/// (HeadlessView). A scene is attached to one of them at a time. Pure data; drawing stands in
/// platform/render.
class SCNSceneRenderer {
public:
    virtual ~SCNSceneRenderer() = default;

    [[nodiscard]] const SCNScenePtr& scene() const { return scene_; }

    virtual void setScene(SCNScenePtr scene) { scene_ = std::move(scene); }

    SCNSceneRendererDelegate* delegate = nullptr;
    SCNNodePtr pointOfView;    ///< null: the first node below the root that has a camera
    SCNTechniquePtr technique; ///< drawn over the finished picture; null: none

    /// Animates the scene to the time and tells the delegate, without drawing.
    void update(double time);

private:
    SCNScenePtr scene_;
};

/// A view without a picture: keeps a scene's clock going where nothing is to be seen.
class HeadlessView final : public SCNSceneRenderer {};

} // namespace zelvo::scene
