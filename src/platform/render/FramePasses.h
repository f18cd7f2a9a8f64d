// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/BloomPass.h"
#include "platform/render/DepthOfFieldPass.h"
#include "platform/render/DisplayPass.h"
#include "platform/render/DrawQuality.h"
#include "platform/render/SceneDrawer.h"
#include "platform/render/TechniquePasses.h"

#include <cstdint>
#include <optional>
#include <span>

namespace zelvo::render {

/// What to draw, and how large.
struct FrameInput {
    const scene::SCNScene& scene;
    const scene::SCNNode* pointOfView;       ///< null: the first node with a camera
    const scene::SCNTechniquePtr& technique; ///< null: no technique
    Size drawnSize;
    int samples;            ///< of a drawn pixel at edges: 1 or 4
    Size shownSize;         ///< of the delivered picture: a blur smaller than its pixels is skipped
    UniformArena& uniforms; ///< must not be reused until the GPU has finished the frame
    Moment moment{};
    std::uint32_t leftOut = 0; ///< categories of nodes that are not drawn
    Detail detail = Detail::full;
    /// Is drawn instead of the scene's background. It lights nothing. Null: there is none.
    const scene::SCNMaterialProperty* backdrop = nullptr;
    int drawings = 1; ///< of the frame: how many there are
};

/// Draws a frame: the chain of passes that the movie renderer and the view on screen share. One
/// table (`passes`) says which passes there are, what each reads and writes, and when it is
/// skipped. Draws with the OpenGL context that is current on this thread.
class FramePasses {
public:
    explicit FramePasses(const DeviceInfo& device);
    FramePasses(const FramePasses&) = delete;
    FramePasses& operator=(const FramePasses&) = delete;

    /// Resizes the picture to the drawn size; it is `rgba8` without depth. Its textures may be
    /// different ones after each frame.
    void draw(const FrameInput& input, RenderTarget& picture);

    /// Returns a hash of all that the picture depends on, without a technique: same key, same
    /// picture. Nothing if the picture depends on time.
    [[nodiscard]] std::optional<std::uint64_t>
    pictureKey(const scene::SCNScene& scene, const scene::SCNNode* pointOfView, float aspect) {
        return drawer.pictureKey(scene, pointOfView, aspect);
    }

    [[nodiscard]] GraphicsState& graphicsState() { return drawer.graphicsState(); }

private:
    struct Frame;
    struct Pass;
    struct Table;

    [[nodiscard]] static std::span<const Pass> passes();
    [[nodiscard]] bool glows(const Frame& frame) const;
    [[nodiscard]] bool isOutOfFocus(const Frame& frame) const;

    SceneDrawer drawer;
    DepthOfFieldPass depthOfField;
    TechniquePasses techniques;
    BloomPass bloom;
    DisplayPass display;
    RenderTarget light{TargetFormat::half, TargetFormat::depth32};
    RenderTarget spare{TargetFormat::rgba8};
    std::uint32_t glow = 0; ///< texture of this frame; 0: none
};

} // namespace zelvo::render
