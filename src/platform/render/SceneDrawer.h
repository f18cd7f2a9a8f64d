// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/BackgroundPass.h"
#include "platform/render/Context.h"
#include "platform/render/DrawQuality.h"
#include "platform/render/EdgeLines.h"
#include "platform/render/FloorPass.h"
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
#include "platform/render/TouchedTiles.h"
#include "platform/render/TranslucentOrder.h"
#include "platform/render/UniformArena.h"

#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace zelvo::render {

/// Draws a scene: shadow maps, background, items, particles. FramePasses calls the functions in
/// this order.
///
/// Everything is drawn and blended in linear light, into a target of half-floats. `color.glsl` says
/// what its alpha means.
class SceneDrawer {
public:
    explicit SceneDrawer(const DeviceInfo& device);

    /// What the passes of one frame share.
    struct Frame {
        const scene::SCNScene& scene;
        const RenderTarget& target;
        Detail detail;
        const scene::SCNMaterialProperty& background;
        FrameBlock block;
        ItemPainter::Frame items;
    };

    /// Where a frame is drawn, and how.
    struct Canvas {
        const RenderTarget& target;
        Detail detail = Detail::full;
        const scene::SCNMaterialProperty* backdrop = nullptr; ///< see FrameInput
    };

    /// Reads the scene, which must not change until `end`.
    [[nodiscard]] Frame begin(
        const scene::SCNScene& scene,
        const Snapshot::Sight& sight,
        const Canvas& canvas,
        UniformArena& uniforms);
    /// Frees what is no longer used.
    void end();

    /// Whether light of the scene is tone mapped.
    [[nodiscard]] bool hasToneMap() const {
        return snapshot.sceneCamera() != nullptr && snapshot.sceneCamera()->wantsHDR;
    }

    /// Whether lamps or the environment light the scene. Flat pictures have only ambient light.
    [[nodiscard]] bool hasSceneLight(const scene::SCNScene& scene) const;

    [[nodiscard]] bool hasShadows() const { return views.count > 0; }

    /// After drawStill.
    [[nodiscard]] bool hasShade() const;

    /// After drawStill.
    [[nodiscard]] bool hasTranslucent() const;

    [[nodiscard]] bool hasFloor() const { return snapshot.floor().has_value(); }

    [[nodiscard]] bool hasParticles() const { return !snapshot.emitters().empty(); }

    void drawShadows(const Frame& frame);
    /// Draws the background and the items that have not changed (StillLayer decides which).
    void drawStill(const Frame& frame);
    /// Draws, in a smaller picture, how much darker shadows make what does not cast. They are soft.
    void drawShade(const Frame& frame);
    /// Draws the other opaque items, the shadows on the unchanged ones, and the translucent items
    /// that come before the floor's mirror image.
    void drawMoving(const Frame& frame);
    /// Draws the pictures of what the floor shows: mirror image, dark places.
    void prepareFloor(const Frame& frame);
    /// Draws them onto the floor.
    void drawOnFloor(const Frame& frame);
    /// Draws the translucent items that drawMoving has left.
    void drawTranslucent(const Frame& frame);
    /// Notes where edges of opaque items, and of solids that fade, run through pixels.
    void drawEdgeLines(const Frame& frame);
    void drawParticles(const Frame& frame);

    /// Returns a hash of all that the frame depends on: same key, same picture. Nothing if it
    /// depends on time.
    [[nodiscard]] std::optional<std::uint64_t>
    pictureKey(const scene::SCNScene& scene, const scene::SCNNode* pointOfView, float aspect) {
        return pictures.of(scene, pointOfView, aspect, painter);
    }

    [[nodiscard]] const EdgeLines& edgeLines() const { return lines; }

    [[nodiscard]] GraphicsState& graphicsState() { return state; }

    /// The camera of the frame; null if the scene has none.
    [[nodiscard]] const scene::SCNCamera* sceneCamera() const { return snapshot.sceneCamera(); }

private:
    /// An opaque item and its lights. If shadows fall on a part of it only, that part is darkened
    /// by drawShade's image, or, if that does not know its colour, drawn again with shadows.
    struct OpaqueItem {
        const DrawItem* item = nullptr;
        ItemPainter::Lights lights = 0; ///< for the whole item
        ItemPainter::Lights shadowLights = 0;
        PixelRect shadowed{};      ///< where shadows can fall; may be empty
        bool isDarkened = false;   ///< by the image; it is not drawn again
        bool isDepthFirst = false; ///< its depth is drawn before its colour
    };

    /// When a translucent item is drawn. Of a group only the first counts: groups have their turn.
    struct Veil {
        TranslucentOrder::Place place = TranslucentOrder::Place::inTurn;
        std::uint64_t key = StillLayer::kMoving;
    };

    void planCatcher(const ItemPainter::Frame& frame, Size picture);
    [[nodiscard]] FloorPass::Tools floorTools();
    [[nodiscard]] FloorPass::Frame floorFrame(const Frame& frame) const;
    /// Null if the scene has no image-based light.
    [[nodiscard]] static std::shared_ptr<const image::LightProbe>
    probeOf(const scene::SCNScene& scene);
    [[nodiscard]] FrameBlock frameBlock(const scene::SCNScene& scene, const Canvas& canvas) const;
    [[nodiscard]] std::uint32_t frameFeatures(const scene::SCNScene& scene);
    /// Lights whose shadows need not be looked up, as nothing throws one on the item.
    [[nodiscard]] LightBits unshaded(const ItemPainter::Frame& frame, const DrawItem& item) const;
    /// With shadows.
    [[nodiscard]] ItemPainter::Lights
    lightsOf(const ItemPainter::Frame& frame, const DrawItem& item);
    [[nodiscard]] OpaqueItem
    planned(const ItemPainter::Frame& frame, const DrawItem& item, Size picture);
    /// Whether an item has many triangles that its own front hides. They cost only their depth if
    /// that is drawn first.
    [[nodiscard]] bool hidesItself(const ItemPainter::Frame& frame, const DrawItem& item) const;
    [[nodiscard]] std::uint64_t surroundingsKey(const Frame& frame);
    /// Draws the layer into the target, but only where it is not there yet.
    void copyLayer(const Frame& frame);
    /// Notes where this frame draws over the layer.
    void noteTouched(const Frame& frame);
    void keepWhatTheLayerShows(const scene::SCNScene& scene);
    void drawBackground(const Frame& frame, const RenderTarget& target);
    void keepPicturesOf(const DrawItem& item);
    void planTranslucent(const Frame& frame);
    void drawEarly(const Frame& frame);
    void drawTranslucent(const Frame& frame, std::span<const DrawItem> group);
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
    FloorPass floor;
    StillLayer layer;
    TouchedTiles touched;      ///< where the last frame drew over the layer
    bool isLayerBelow = false; ///< the target holds the layer, apart from these
    EdgeLines lines;
    std::vector<std::uint32_t> edgedNodes; ///< kept between frames to reuse its memory
    RenderTarget shade{TargetFormat::half, TargetFormat::depth32};
    ItemPainter painter;
    PictureKey pictures;
    Snapshot snapshot;
    ShadowViews views;
    std::vector<OpaqueItem> opaques;
    std::vector<std::uint64_t> keys; ///< of the opaques, then of all else in the layer
    TranslucentOrder order;
    std::vector<Veil> veils; ///< for each of the snapshot's translucent items
    /// A floor that is left out: only the shadows on it are drawn.
    std::optional<OpaqueItem> catcher;
    /// Owners of the addresses in the layer's keys, so that no new object gets such an address.
    std::vector<std::shared_ptr<const void>> layerOwners;
};

} // namespace zelvo::render
