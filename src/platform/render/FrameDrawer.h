// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/BackgroundPass.h"
#include "platform/render/Context.h"
#include "platform/render/GraphicsState.h"
#include "platform/render/ItemPainter.h"
#include "platform/render/ParticlePass.h"
#include "platform/render/PictureKey.h"
#include "platform/render/PixelRect.h"
#include "platform/render/ShadowPass.h"
#include "platform/render/Snapshot.h"
#include "platform/render/StillLayer.h"
#include "platform/render/SurfaceShaders.h"
#include "platform/render/TextureStore.h"
#include "platform/render/UniformArena.h"

#include <memory>
#include <optional>
#include <vector>

namespace zelvo::render {

/// Where a frame is drawn: an 8-bit colour and a floating-point depth attachment.
struct DrawTarget {
    std::uint32_t framebuffer = 0;
    Size size;
};

/// Draws scenes with the OpenGL context that is current on this thread, whoever made it. The
/// passes, each left out when it adds nothing: shadow maps, background, opaque items front to back
/// (those that stand still as one picture), translucent items back to front, particles.
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

    /// Of what `draw` would draw, without drawing it. Empty: that never stands still.
    [[nodiscard]] std::optional<std::uint64_t>
    pictureKey(const scene::SCNScene& scene, const scene::SCNNode* pointOfView, float aspect) {
        return pictures.of(scene, pointOfView, aspect, painter);
    }

    /// After others have used the context.
    void forgetState() { state.forget(); }

    [[nodiscard]] GraphicsState& graphicsState() { return state; }

    /// The camera that the last frame was seen with; null if it was none of the scene's.
    [[nodiscard]] const scene::SCNCamera* sceneCamera() const { return snapshot.sceneCamera(); }

private:
    /// An opaque item and how it is to be drawn: where shadows can fall on a part of it only,
    /// twice.
    struct OpaqueItem {
        const DrawItem* item = nullptr;
        ItemPainter::Lights lights = 0; ///< of the whole item
        ItemPainter::Lights shadowLights = 0;
        PixelRect shadowed{}; ///< where it is drawn with shadowLights; empty: nowhere
    };

    /// Null: the scene has no image-based light.
    [[nodiscard]] static std::shared_ptr<const image::LightProbe>
    probeOf(const scene::SCNScene& scene);
    [[nodiscard]] FrameBlock frameBlock(const scene::SCNScene& scene) const;
    [[nodiscard]] std::uint32_t frameFeatures(const scene::SCNScene& scene);
    [[nodiscard]] OpaqueItem
    planned(const ItemPainter::Frame& frame, const DrawItem& item, Size picture);
    [[nodiscard]] std::uint64_t surroundingsKey(
        const scene::SCNScene& scene,
        const FrameBlock& block,
        std::uint32_t features,
        Size size) const;
    void keepWhatTheLayerShows(const scene::SCNScene& scene);
    void drawWhole(const ItemPainter::Frame& frame, const OpaqueItem& opaque);
    void
    drawShadowed(const ItemPainter::Frame& frame, const OpaqueItem& opaque, DepthTest depthTest);
    void drawTranslucent(const ItemPainter::Frame& frame);
    void prune();

    GraphicsState state;
    PictureHoles holes;
    MeshStore meshes;
    TextureStore textures;
    SurfaceShaders shaders;
    ShadowPass shadows;
    BackgroundPass background;
    ParticlePass particles;
    StillLayer layer;
    ItemPainter painter;
    PictureKey pictures;
    Snapshot snapshot;
    std::vector<ShadowView> views;
    std::vector<OpaqueItem> opaques;
    std::vector<std::uint64_t> keys; ///< of the opaques
    std::vector<std::shared_ptr<const void>>
        layerOwners; ///< so that no address in the layer's keys comes back for another
};

} // namespace zelvo::render
