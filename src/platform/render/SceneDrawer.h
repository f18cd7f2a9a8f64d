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

/// Draws a scene's own passes, from its shadow maps to its particles; FramePasses calls them in
/// their order.
///
/// Colours are lit in linear light and tone mapped and encoded at once in the surface's shader, so
/// that the target needs no more than 8 bits. Blending and the background work on encoded values;
/// so a background has its colour exactly.
class SceneDrawer {
public:
    explicit SceneDrawer(const DeviceInfo& device);

    /// What the passes of one frame have in common.
    struct Frame {
        const scene::SCNScene& scene;
        const RenderTarget& target;
        FrameBlock block;
        ItemPainter::Frame items;
    };

    /// Reads the scene as it stands. It must not change until `end`.
    [[nodiscard]] Frame begin(
        const scene::SCNScene& scene,
        const scene::SCNNode* pointOfView,
        const RenderTarget& target,
        UniformArena& uniforms);
    /// Lets go what nothing uses any more.
    void end();

    [[nodiscard]] bool hasShadows() const { return views.count > 0; }

    [[nodiscard]] bool hasOpaque() const { return !snapshot.opaque().empty(); }

    [[nodiscard]] bool hasTranslucent() const { return !snapshot.translucent().empty(); }

    [[nodiscard]] bool hasParticles() const { return !snapshot.emitters().empty(); }

    void drawShadows(const Frame& frame);
    /// The background and the opaque items that stand still. Finds out which they are.
    void drawStill(const Frame& frame);
    /// The other opaque items, and the shadows that fall on those that stand still.
    void drawMoving(const Frame& frame);
    void drawTranslucent(const Frame& frame);
    void drawParticles(const Frame& frame);

    /// Of what a frame would show, without drawing it. Empty: that never stands still.
    [[nodiscard]] std::optional<std::uint64_t>
    pictureKey(const scene::SCNScene& scene, const scene::SCNNode* pointOfView, float aspect) {
        return pictures.of(scene, pointOfView, aspect, painter);
    }

    [[nodiscard]] GraphicsState& graphicsState() { return state; }

    /// The camera that the frame is seen with; null if it is none of the scene's.
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
    [[nodiscard]] std::uint64_t surroundingsKey(const Frame& frame) const;
    void keepWhatTheLayerShows(const scene::SCNScene& scene);
    void drawBackground(const Frame& frame, const RenderTarget& target);
    void drawWhole(const ItemPainter::Frame& frame, const OpaqueItem& opaque);
    void
    drawShadowed(const ItemPainter::Frame& frame, const OpaqueItem& opaque, DepthTest depthTest);

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
    ShadowViews views;
    std::vector<OpaqueItem> opaques;
    std::vector<std::uint64_t> keys; ///< of the opaques
    std::vector<std::shared_ptr<const void>>
        layerOwners; ///< so that no address in the layer's keys comes back for another
};

} // namespace zelvo::render
