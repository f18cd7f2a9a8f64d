// SPDX-License-Identifier: MIT
#pragma once

#include "platform/scene/SCNScene.h"
#include "platform/scene/SCNTechnique.h"

namespace zelvo::scene {

class SCNSceneRenderer;

/// Called at each stage of a frame, on the thread that draws.
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

/// Shows a scene: the view on screen, the offscreen renderer of an export, or a HeadlessView. A
/// scene is attached to one of them at a time. This class holds data only; platform/render draws.
class SCNSceneRenderer {
public:
    virtual ~SCNSceneRenderer() = default;

    [[nodiscard]] const SCNScenePtr& scene() const { return scene_; }

    virtual void setScene(SCNScenePtr scene) { scene_ = std::move(scene); }

    SCNSceneRendererDelegate* delegate = nullptr;
    SCNNodePtr pointOfView;    ///< null: the first node of the scene with a camera
    SCNTechniquePtr technique; ///< drawn over the finished picture; null: none

    /// Advances the scene to the time and calls the delegate. Does not draw.
    void update(double time);

private:
    SCNScenePtr scene_;
};

/// Draws nothing; keeps the clock of a scene running where there is no screen.
class HeadlessView final : public SCNSceneRenderer {};

} // namespace zelvo::scene
