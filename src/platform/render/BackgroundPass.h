// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/FullscreenPass.h"
#include "platform/render/Snapshot.h"
#include "platform/render/TextureStore.h"

#include <cstdint>

namespace zelvo::render {

/// Fills a target with the scene's background. A panorama is drawn only when the picture, the
/// camera or the size changes; otherwise the last drawing is copied. On the CPU a copy costs a
/// thirtieth of drawing.
class BackgroundPass {
public:
    struct Tools {
        GraphicsState& state;
        TextureStore& textures;
        UniformArena& uniforms;
    };

    /// The target must be bound. Its depth is not touched.
    void draw(
        const Tools& tools,
        const scene::SCNMaterialProperty& background,
        const CameraView& camera,
        const RenderTarget& target);

    /// A hash of what the next draw shows: it changes when the background's pixels would.
    [[nodiscard]] std::uint64_t
    key(const scene::SCNMaterialProperty& background, const CameraView& camera, Size size) const;

private:
    void drawPicture(
        const Tools& tools, const scene::SCNMaterialProperty& background, const CameraView& camera);
    [[nodiscard]] bool
    isKept(const scene::SCNMaterialProperty& background, const CameraView& camera, Size size) const;

    FullscreenPass equirectangular{"background.frag", {"DIRECTIONS"}};
    FullscreenPass cube{"background.frag", {"DIRECTIONS", "CUBE"}};
    RenderTarget kept{TargetFormat::rgba8};
    scene::SCNMaterialProperty::Contents keptContents;
    glm::mat4 keptView{0};
    std::uint64_t drawings = 0;
};

} // namespace zelvo::render
