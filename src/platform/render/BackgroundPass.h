// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/GraphicsState.h"
#include "platform/render/Snapshot.h"
#include "platform/render/TextureStore.h"
#include "platform/render/UniformArena.h"

#include <cstdint>

namespace zelvo::render {

/// Fills a target with the scene's background. A picture all around is drawn when it, the camera or
/// the size changes, and otherwise copied from what was drawn then: on the CPU a copy costs a
/// thirtieth of drawing it.
class BackgroundPass {
public:
    struct Tools {
        GraphicsState& state;
        TextureStore& textures;
        UniformArena& uniforms;
    };

    /// The framebuffer is bound, its depth untouched.
    void draw(
        const Tools& tools,
        const scene::SCNMaterialProperty& background,
        const CameraView& camera,
        std::uint32_t framebuffer,
        Size size);

    /// Of what the next draw puts there: another whenever that is another.
    [[nodiscard]] std::uint64_t
    key(const scene::SCNMaterialProperty& background, const CameraView& camera, Size size) const;

private:
    void drawPicture(
        const Tools& tools, const scene::SCNMaterialProperty& background, const CameraView& camera);
    void ensureSize(Size wanted, GraphicsState& state);
    [[nodiscard]] bool
    isKept(const scene::SCNMaterialProperty& background, const CameraView& camera, Size size) const;

    ProgramHandle equirectangular;
    ProgramHandle cube;
    VertexArrayHandle noVertices;
    TextureHandle kept;
    FramebufferHandle keptFramebuffer;
    Size keptSize;
    scene::SCNMaterialProperty::Contents keptContents;
    glm::mat4 keptView{0};
    std::uint64_t drawings = 0;
};

} // namespace zelvo::render
