// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/render/InstanceBuffer.h"
#include "platform/render/RenderTarget.h"
#include "platform/render/ShaderBlocks.h"
#include "platform/render/UniformArena.h"

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace zelvo::render {

/// Runs a fragment shader for the pixels of a target. The shader is built on first use.
class FullscreenPass {
public:
    struct Tools {
        GraphicsState& state;
        UniformArena& uniforms;
    };

    /// A texture that the shader reads.
    struct Input {
        std::uint32_t unit;
        std::uint32_t texture;
        std::uint32_t sampler = 0; ///< 0: the pass's own sampler (bilinear, clamped to the edge)
    };

    /// Another vertex shader is for `runOn`.
    explicit FullscreenPass(
        std::string_view fragmentFile,
        std::vector<std::string> shaderDefines = {},
        std::string_view vertexFile = "fullscreen.vert");

    /// Builds the shader. Error: `malformed`, with the compiler's message. `run` calls it, too, but
    /// there an error ends the process.
    [[nodiscard]] foundation::Result<void> prepare();

    /// Once for each pixel. Sets the size in the block to the target's; the caller fills in the rest.
    void
    run(const Tools& tools,
        const RenderTarget& target,
        std::initializer_list<Input> inputs,
        PassBlock block = {});

    /// For the pixels of some quads.
    void runOn(
        const InstanceBuffer& quads,
        const Tools& tools,
        const RenderTarget& target,
        std::initializer_list<Input> inputs);

private:
    void begin(
        const Tools& tools,
        const RenderTarget& target,
        std::initializer_list<Input> inputs,
        PassBlock block);

    std::string_view vertex;
    std::string_view fragment;
    std::vector<std::string> defines;
    ProgramHandle program;
    VertexArrayHandle noVertices;
    SamplerHandle smooth;
};

} // namespace zelvo::render
