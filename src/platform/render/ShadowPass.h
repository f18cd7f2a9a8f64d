// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/Lighting.h"
#include "platform/render/MeshStore.h"
#include "platform/render/RenderTarget.h"
#include "platform/render/SurfaceShaders.h"
#include "platform/render/TextureStore.h"
#include "platform/render/UniformArena.h"

#include <array>
#include <cstdint>
#include <span>

namespace zelvo::render {

/// Draws a shadow map for each shadow view: how much of the light its casters stop, and where
/// (shaders/shadows.glsl). A fading caster stops less. A map is kept if its view and its casters have
/// not changed.
class ShadowPass {
public:
    struct Tools {
        GraphicsState& state;
        MeshStore& meshes;
        SurfaceShaders& shaders;
        UniformArena& uniforms;
        TextureStore& textures;
    };

    void draw(const Tools& tools, const Snapshot& snapshot, std::span<const ShadowView> views);

    /// The map of the view with this index.
    [[nodiscard]] std::uint32_t texture(std::size_t view) const {
        return maps.at(view).target.color();
    }

    /// A hash of the map's content.
    [[nodiscard]] std::uint64_t content(std::size_t view) const { return maps.at(view).content; }

    /// Clears the bound map and prepares to draw casters into it.
    static void beginMap(const Tools& tools, const glm::mat4& viewProjection);
    static void drawCaster(const Tools& tools, const VisibleNode& node);

private:
    struct Map {
        RenderTarget target{TargetFormat::casters};
        std::uint64_t content = 0; ///< hash of what was drawn
    };

    static void drawCasters(const Tools& tools, const Snapshot& snapshot, const ShadowView& view);

    std::array<Map, kMaxShadows> maps;
};

} // namespace zelvo::render
