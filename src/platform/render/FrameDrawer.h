// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/BackgroundPass.h"
#include "platform/render/Context.h"
#include "platform/render/GraphicsState.h"
#include "platform/render/Lighting.h"
#include "platform/render/MeshStore.h"
#include "platform/render/ParticlePass.h"
#include "platform/render/ShadowPass.h"
#include "platform/render/Snapshot.h"
#include "platform/render/SurfaceShaders.h"
#include "platform/render/TextureStore.h"
#include "platform/render/UniformArena.h"

#include <memory>
#include <vector>

namespace zelvo::render {

/// Where a frame is drawn: an 8-bit colour and a floating-point depth attachment.
struct DrawTarget {
    std::uint32_t framebuffer = 0;
    Size size;
};

/// Draws scenes with the OpenGL context that is current on this thread, whoever made it. The
/// passes, each left out when it adds nothing: shadow maps, background, opaque items front to back,
/// translucent items back to front, particles.
///
/// Colours are lit in linear light and tone mapped and encoded at once in the surface's shader, so
/// that the target needs no more than 8 bits. Blending and the background work on encoded values;
/// so a background has its colour exactly.
class FrameDrawer {
public:
    explicit FrameDrawer(const DeviceInfo& device);

    /// The uniforms are the frame's own and stay untouched until the graphics side is done with it.
    void draw(
        const scene::SCNScene& scene,
        const scene::SCNNode* pointOfView,
        const DrawTarget& target,
        UniformArena& uniforms);

    /// After others have used the context.
    void forgetState() { state.forget(); }

    [[nodiscard]] GraphicsState& graphicsState() { return state; }

private:
    struct Frame;

    /// Null: the scene has no image-based light.
    [[nodiscard]] static std::shared_ptr<const image::LightProbe>
    probeOf(const scene::SCNScene& scene);
    [[nodiscard]] FrameBlock frameBlock(const scene::SCNScene& scene) const;
    [[nodiscard]] std::size_t lightSetFor(std::uint32_t mask);
    void bindLights(Frame& frame, std::size_t index);
    void bindPictures(const MaterialBinding& binding);
    void drawTranslucent(Frame& frame);
    void drawItem(Frame& frame, const DrawItem& item, DepthTest depthTest);
    void drawDepth(Frame& frame, const DrawItem& item);
    void submit(const DrawItem& item);

    GraphicsState state;
    PictureHoles holes;
    MeshStore meshes;
    TextureStore textures;
    SurfaceShaders shaders;
    ShadowPass shadows;
    BackgroundPass background;
    ParticlePass particles;
    Snapshot snapshot;
    std::vector<ShadowView> views;
    std::vector<LightSet> lightSets;
};

} // namespace zelvo::render
