// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/DepthOfFieldPass.h"
#include "platform/render/SceneDrawer.h"
#include "platform/render/TechniquePasses.h"

#include <cstdint>
#include <optional>
#include <span>

namespace zelvo::render {

/// What a frame shows and how large.
struct FrameInput {
    const scene::SCNScene& scene;
    const scene::SCNNode* pointOfView;       ///< null: the first node that has a camera
    const scene::SCNTechniquePtr& technique; ///< null: none
    Size drawnSize;
    int shownHeight; ///< pixels of the picture as it is delivered or shown: finer blur is not seen
    UniformArena& uniforms; ///< untouched until the graphics side is done with the frame
};

/// Draws frames with the OpenGL context that is current on this thread, whoever made it: the one
/// chain of passes that the movie renderer and the view on screen both run. Which passes there are,
/// what they read, what they write and when they are left out stands in one table (`passes`).
class FramePasses {
public:
    explicit FramePasses(const DeviceInfo& device);
    FramePasses(const FramePasses&) = delete;
    FramePasses& operator=(const FramePasses&) = delete;

    /// A picture that frames are drawn into; all share one depth. This object outlives it.
    [[nodiscard]] RenderTarget makePicture() { return {{TargetFormat::rgba8}, depth}; }

    /// The picture gets the drawn size. Its textures are others after each frame.
    void draw(const FrameInput& input, RenderTarget& picture);

    /// Of what `draw` would draw without a technique, without drawing it. Empty: that never stands
    /// still.
    [[nodiscard]] std::optional<std::uint64_t>
    pictureKey(const scene::SCNScene& scene, const scene::SCNNode* pointOfView, float aspect) {
        return drawer.pictureKey(scene, pointOfView, aspect);
    }

    [[nodiscard]] GraphicsState& graphicsState() { return drawer.graphicsState(); }

private:
    struct Frame;
    struct Pass;

    [[nodiscard]] static std::span<const Pass> passes();
    [[nodiscard]] bool isOutOfFocus(const Frame& frame) const;

    SceneDrawer drawer;
    DepthOfFieldPass depthOfField;
    TechniquePasses techniques;
    RenderTarget depth{TargetFormat::depth32};
    RenderTarget spare{{TargetFormat::rgba8}, depth};
};

} // namespace zelvo::render
