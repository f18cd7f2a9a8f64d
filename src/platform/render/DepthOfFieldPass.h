// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/GraphicsState.h"
#include "platform/render/UniformArena.h"
#include "platform/scene/SCNCamera.h"

#include <cstdint>

namespace zelvo::render {

/// Blurs what stands out of a camera's focus in a drawn picture. To be run where
/// `needsDepthOfField` says so.
class DepthOfFieldPass {
public:
    /// The picture, which is replaced, and the depth it was drawn with.
    struct Picture {
        std::uint32_t color = 0;
        std::uint32_t depth = 0;
        std::uint32_t framebuffer = 0;
        Size size;
    };

    void draw(
        const scene::SCNCamera& camera,
        const Picture& picture,
        GraphicsState& state,
        UniformArena& uniforms);

private:
    void ensureTools();
    void ensureSize(Size wanted, GraphicsState& state);

    ProgramHandle program;
    VertexArrayHandle noVertices;
    SamplerHandle nearest;
    TextureHandle blurred;
    FramebufferHandle blurredFramebuffer;
    Size size;
};

} // namespace zelvo::render
