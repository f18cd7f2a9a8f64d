// SPDX-License-Identifier: MIT
#pragma once

#include "content/StylePresets.h"
#include "platform/foundation/RunLoop.h"
#include "platform/scene/SCNParticleSystem.h"
#include "platform/scene/SCNScene.h"

#include <atomic>
#include <functional>
#include <memory>

namespace zelvo::look {

/// A scene environment: the stage around the content, and the rule by which the user's one
/// background colour is distributed over it. The content belongs to Nodes and moves from one
/// environment's scene to the next. Main thread only; pictures are tinted on a queue of the
/// environment's own, and only the newest tint is shown.
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

    /// The last colour given; the platform's blue at first.
    [[nodiscard]] const image::Color& backgroundColor() const { return backgroundColor_; }

    /// The particles that float all around; null if there are none.
    [[nodiscard]] const scene::SCNParticleSystemPtr& particleSystem() const {
        return particleSystem_;
    }

    /// Lets them be born in a ball around the whole stage. Once for each environment: an earlier
    /// emitter stays.
    void setParticleSystem(const scene::SCNParticleSystemPtr& system);

    /// Keeps the colour; each environment goes on from there by its own rule.
    virtual void setBackground(const image::Color& color);
    [[nodiscard]] virtual scene::SCNCameraPtr makeCamera() const;

protected:
    /// Brings backgroundColor to the scene's background: a colour at once, a picture as a mask that
    /// is filled with it and shown when it is ready.
    void tintBackground();

    /// Brings what is made of backgroundColor on the queue to the scene's background, unless a
    /// newer work has been started by then.
    using Painter = std::function<scene::SCNMaterialProperty::Contents(const image::Color&)>;
    void paintBackground(Painter painter);

    /// Loads a resource scene in place of the empty one and takes out its authoring aids.
    void loadScene(const std::string& name);
    /// Lights the scene with a resource picture of all around; a missing one gives no light.
    void setLighting(const std::string& picture, float intensity);
    /// The node of that name anywhere below the root; null if there is none.
    [[nodiscard]] scene::SCNNodePtr nodeNamed(const std::string& name) const;

private:
    void cancelOperations();

    foundation::RunLoop& runLoop;
    image::Color backgroundColor_{0, 0, 1, 1};
    scene::SCNParticleSystemPtr particleSystem_;
    std::unique_ptr<foundation::SerialQueue> operationQueue;
    std::shared_ptr<std::atomic<bool>>
        isNewestCancelled; ///< of the newest operation; null before the first
};

using SNEPtr = std::shared_ptr<SNE>;

/// The colour with its hue moved by an offset, in turns. The new hue is the remainder of the sum by
/// 1 and keeps the sum's sign.
[[nodiscard]] image::HSBColor hueShifted(const image::Color& color, float offset);

} // namespace zelvo::look
