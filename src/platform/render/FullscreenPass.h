// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/render/RenderTarget.h"
#include "platform/render/ShaderBlocks.h"
#include "platform/render/UniformArena.h"

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace zelvo::render {

/// Runs a fragment shader once for each pixel of a target. The shader is built on first use.
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

    explicit FullscreenPass(
        std::string_view fragmentFile, std::vector<std::string> shaderDefines = {});

    /// Builds the shader. Error: `malformed`, with the compiler's message. `run` calls it, too, but
    /// there an error ends the process.
    [[nodiscard]] foundation::Result<void> prepare();

    /// Sets the size in the block to the target's; the caller fills in the rest.
    void
    run(const Tools& tools,
        const RenderTarget& target,
        std::initializer_list<Input> inputs,
        PassBlock block = {});

private:
    std::string_view file;
    std::vector<std::string> defines;
    ProgramHandle program;
    VertexArrayHandle noVertices;
    SamplerHandle smooth;
};

} // namespace zelvo::render
