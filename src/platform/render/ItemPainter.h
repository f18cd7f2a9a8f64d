// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/Lighting.h"
#include "platform/render/MaterialBinding.h"
#include "platform/render/MeshStore.h"
#include "platform/render/ShadowPass.h"
#include "platform/render/SurfaceShaders.h"
#include "platform/render/TextureStore.h"
#include "platform/render/UniformArena.h"

#include <cstdint>
#include <span>
#include <vector>

namespace zelvo::render {

/// Draws single items of a snapshot: finds and binds their shader, lights and textures.
class ItemPainter {
public:
    struct Tools {
        GraphicsState& state;
        MeshStore& meshes;
        TextureStore& textures;
        SurfaceShaders& shaders;
        PictureHoles& holes;
        const ShadowPass& shadows;
    };

    /// What all items of a frame share. Must stay alive while they are drawn.
    struct Frame {
        const Snapshot& snapshot;
        std::span<const ShadowView> views;
        UniformArena& uniforms;
        /// needed by every lit material of the frame: the environment
        std::uint32_t features = 0;
        bool isMirrored = false; ///< faces turn the other way round
    };

    /// Index of a set of lights; valid for this frame.
    using Lights = std::size_t;
    enum class Shadows { cast, none };

    explicit ItemPainter(const Tools& given)
        : tools(given) {}

    void begin();
    /// Those that reach the item. The ones in `unshaded` get no shadow.
    [[nodiscard]] Lights
    lightsFor(const Frame& frame, const DrawItem& item, Shadows shadows, LightBits unshaded = 0);

    [[nodiscard]] const LightSet& lightSet(Lights lights) const { return sets[lights].set; }

    void draw(const Frame& frame, const DrawItem& item, Lights lights, DepthTest depthTest);
    void drawDepth(const Frame& frame, const DrawItem& item);
    /// For each colour, or for the brightness of all.
    enum class Shade { colored, grey };
    /// Draws how much darker shadows make the item; see shade.frag.
    void drawShade(const Frame& frame, const DrawItem& item, Lights lights, Shade shade);
    /// Darkens the item, which is drawn already, by the image of that, which is bound.
    void applyShade(const Frame& frame, const DrawItem& item);
    /// Draws over the item with the program in use; it gets the item's numbers and the picture of
    /// its roughness.
    void drawOver(const Frame& frame, const DrawItem& item, Blend blend, Colors colors);

    /// True for a closed solid that is translucent only by its opacity: its inside must not show
    /// while it fades.
    [[nodiscard]] bool fadesAsAWhole(const scene::SCNMaterial& material) const;

    /// Whether drawShade knows all of its colour.
    [[nodiscard]] bool canBeDarkened(const scene::SCNMaterial& material) const;

    /// Whether it is drawn without culling.
    [[nodiscard]] bool showsBackFaces(const Frame& frame, const DrawItem& item) const;

    /// A hash of what decides the item's pixels, for the same camera and surroundings (see
    /// StillLayer). kMoving if the item depends on time.
    [[nodiscard]] std::uint64_t key(const Frame& frame, const DrawItem& item, Lights lights) const;

    /// The pictures that the item's key identifies by their addresses.
    [[nodiscard]] std::vector<image::ImagePtr> pictures(const DrawItem& item) const;

private:
    struct KeyedSet {
        LightSet set;
        Shadows shadows = Shadows::cast;
        LightBits leftOut = 0;
        LightBits unshaded = 0;
        std::uint64_t key = 0;
    };

    [[nodiscard]] MaterialBinding bound(const Frame& frame, const DrawItem& item) const;
    /// Draws its shape with the program in use, without pictures.
    void drawShape(const Frame& frame, const DrawItem& item, RasterState raster);
    /// Binds the program, and what it reads.
    void bind(const Frame& frame, const MaterialBinding& binding, Lights lights);
    void bindLights(const Frame& frame, Lights lights);
    void bindPictures(const MaterialBinding& binding);
    /// Draws the triangles. Sides and culling follow from the item.
    void submit(const Frame& frame, const DrawItem& item, RasterState raster);

    Tools tools;
    std::vector<KeyedSet> sets;
    Lights boundLights = SIZE_MAX;
};

} // namespace zelvo::render
