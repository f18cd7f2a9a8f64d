// SPDX-License-Identifier: MIT
#pragma once

#include "content/StylePresets.h"
#include "platform/foundation/RunLoop.h"
#include "platform/scene/SCNParticleSystem.h"
#include "platform/scene/SCNScene.h"

#include <atomic>
#include <functional>
#include <memory>
#include <vector>

namespace zelvo::environments {

/// A scene environment: the scene around the content, and a rule that applies the user's background
/// colour to it. The content belongs to Nodes and moves from one environment's scene to the next.
/// Main thread only. Pictures are tinted on the environment's own queue, one at a time. A tint that
/// has begun is shown, so that a dragged colour is followed; of those that wait, only the newest is
/// done.
class SNE {
public:
    explicit SNE(foundation::RunLoop& loop);
    virtual ~SNE();
    SNE(const SNE&) = delete;
    SNE& operator=(const SNE&) = delete;

    scene::SCNScenePtr scene; ///< never null
    content::TextStylePreset t1TextStylePreset;
    content::TextStylePreset t2TextStylePreset;
    content::ImageStylePreset imageStylePreset;
    content::MediaStylePreset mediaNodeStylePreset;

    /// The last colour set; initially the default blue.
    [[nodiscard]] const image::Color& backgroundColor() const { return backgroundColor_; }

    /// The particles around the stage; null if there are none.
    [[nodiscard]] const scene::SCNParticleSystemPtr& particleSystem() const {
        return particleSystem_;
    }

    /// Makes particles start in a ball around the whole stage. Call it once for each environment,
    /// because an earlier emitter is not removed.
    void setParticleSystem(const scene::SCNParticleSystemPtr& system);

    /// Lets all particles of the scene begin anew: a movie must not depend on how long the scene has
    /// been on screen.
    void restartParticles() const;

    /// Raises or lowers the floor and all that stands on it to just under the content's lowest point,
    /// so that a title stands on its stage; within limits. Does nothing without a floor.
    void setGround(float lowestOfContent);

    /// Stores the colour; each environment then applies its own rule.
    virtual void setBackground(const image::Color& color);
    [[nodiscard]] virtual scene::SCNCameraPtr makeCamera() const;

protected:
    /// Applies backgroundColor to the scene's background. A colour is set at once; a picture is
    /// used as a mask, filled with the colour, and shown when that is done.
    void tintBackground();

    /// Runs `painter` on the queue and sets its result as the scene's background. Does nothing if a
    /// newer job was queued before this one began.
    using Painter = std::function<scene::SCNMaterialProperty::Contents(const image::Color&)>;
    void paintBackground(Painter painter);

    /// Loads a resource scene to replace the empty one, without its authoring aids.
    void loadScene(const std::string& name);
    /// Sets a resource panorama as image-based light; a missing one gives no light.
    void setLighting(const std::string& picture, float intensity);
    /// Gives a lamp its colour, and all that hangs below it: tubes, cones, glows. Does nothing if
    /// the node or its light is missing.
    static void setLamp(const scene::SCNNodePtr& node, const image::Color& color);
    /// The first descendant of the root with this name; null if there is none.
    [[nodiscard]] scene::SCNNodePtr nodeNamed(const std::string& name) const;

private:
    void cancelOperations();
    void gatherStage();

    foundation::RunLoop& runLoop;
    image::Color backgroundColor_{0, 0, 1, 1};
    scene::SCNParticleSystemPtr particleSystem_;
    scene::SCNNodePtr stage; ///< all that moves with the ground; null without a floor
    std::vector<scene::SCNMaterialPtr> floors;
    float groundOfFile = 0; ///< height of the floor in the scene file
    std::unique_ptr<foundation::SerialQueue> operationQueue;
    using Flag = std::shared_ptr<std::atomic<bool>>;
    Flag isNewestReplaced; ///< of the newest job; null before the first
    Flag areCancelled;     ///< of all jobs since the last cancelOperations; null before the first
};

using SNEPtr = std::shared_ptr<SNE>;

/// The colour with its hue shifted by an offset (1 is a full turn). The new hue is the sum modulo 1
/// and keeps the sign of the sum.
[[nodiscard]] image::HSBColor hueShifted(const image::Color& color, float offset);

} // namespace zelvo::environments
