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

/// Draws single items of a snapshot: finds their shader, lights and pictures and binds them.
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

    /// What the items of a frame have in common. Outlives their drawing.
    struct Frame {
        const Snapshot& snapshot;
        std::span<const ShadowView> views;
        UniformArena& uniforms;
        std::uint32_t features = 0; ///< of every material: tone map, environment
    };

    /// The number of a set of lights, for this frame.
    using Lights = std::size_t;
    enum class Shadows { cast, none };

    explicit ItemPainter(const Tools& given)
        : tools(given) {}

    void begin();
    [[nodiscard]] Lights lightsFor(const Frame& frame, std::uint32_t mask, Shadows shadows);

    [[nodiscard]] const LightSet& lightSet(Lights lights) const { return sets[lights].set; }

    void draw(const Frame& frame, const DrawItem& item, Lights lights, DepthTest depthTest);
    void drawDepth(const Frame& frame, const DrawItem& item);

    /// A solid that only its opacity makes translucent: its inside must not show while it fades.
    [[nodiscard]] bool fadesAsAWhole(const scene::SCNMaterial& material) const;

    /// The same as long as the item's pixels are, seen from the same camera in the same
    /// surroundings (see StillLayer); kMoving if that cannot be told.
    [[nodiscard]] std::uint64_t key(const Frame& frame, const DrawItem& item, Lights lights) const;

    /// What the item's key tells by their addresses.
    [[nodiscard]] std::vector<image::ImagePtr> pictures(const DrawItem& item) const;

private:
    struct KeyedSet {
        LightSet set;
        Shadows shadows = Shadows::cast;
        std::uint64_t key = 0;
    };

    [[nodiscard]] MaterialBinding bound(const Frame& frame, const DrawItem& item) const;
    void bindLights(const Frame& frame, Lights lights);
    void bindPictures(const MaterialBinding& binding);
    void submit(const Frame& frame, const DrawItem& item);

    Tools tools;
    std::vector<KeyedSet> sets;
    Lights boundLights = SIZE_MAX;
};

} // namespace zelvo::render
