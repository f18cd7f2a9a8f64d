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

/// A fragment shader that is run once for each pixel of a target. Built when it is first needed.
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
        std::uint32_t sampler = 0; ///< 0: the pass's own, bilinear, edges clamped
    };

    explicit FullscreenPass(
        std::string_view fragmentFile, std::vector<std::string> shaderDefines = {});

    /// Error: malformed, with the compiler's words. `run` does the same for shaders that are known
    /// to be right.
    [[nodiscard]] foundation::Result<void> prepare();

    /// The size in the block is the target's; the rest is the caller's.
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
