// SPDX-License-Identifier: MIT
#include "platform/render/FullscreenPass.h"

#include "platform/foundation/Check.h"
#include "platform/render/ShaderProgram.h"

#include <epoxy/gl.h>

#include <utility>

namespace zelvo::render {

FullscreenPass::FullscreenPass(
    std::string_view fragmentFile,
    std::vector<std::string> shaderDefines,
    std::string_view vertexFile)
    : vertex(vertexFile)
    , fragment(fragmentFile)
    , defines(std::move(shaderDefines)) {}

foundation::Result<void> FullscreenPass::prepare() {
    if (program)
        return {};
    auto built = buildProgram({vertex, fragment, defines});
    if (!built)
        return tl::unexpected(built.error());
    program = std::move(*built);
    GLuint name = 0;
    glCreateVertexArrays(1, &name);
    noVertices = VertexArrayHandle(name);
    glCreateSamplers(1, &name);
    smooth = SamplerHandle(name);
    glSamplerParameteri(name, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    glSamplerParameteri(name, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    glSamplerParameteri(name, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
    glSamplerParameteri(name, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
    return {};
}

void FullscreenPass::run(
    const Tools& tools,
    const RenderTarget& target,
    std::initializer_list<Input> inputs,
    PassBlock block) {
    begin(tools, target, inputs, block);
    tools.state.bindVertexArray(noVertices.name());
    glDrawArrays(GL_TRIANGLES, 0, 3);
}

void FullscreenPass::runOn(
    const InstanceBuffer& quads,
    const Tools& tools,
    const RenderTarget& target,
    std::initializer_list<Input> inputs) {
    begin(tools, target, inputs, {});
    quads.drawAll(tools.state);
}

void FullscreenPass::begin(
    const Tools& tools,
    const RenderTarget& target,
    std::initializer_list<Input> inputs,
    PassBlock block) {
    const auto ready = prepare();
    CHECK(ready.has_value(), "{}", ready.error().message);
    block.passFrame.y = static_cast<float>(target.size().width);
    block.passFrame.z = static_cast<float>(target.size().height);
    target.bind(tools.state);
    tools.uniforms.bind(tools.state, kPassBinding, block);
    tools.state.set(
        {.depthTest = DepthTest::off, .depthWrite = DepthWrite::off, .culling = Culling::none});
    tools.state.useProgram(program.name());
    for (const Input& input : inputs) {
        const std::uint32_t sampler = input.sampler != 0 ? input.sampler : smooth.name();
        tools.state.bindTexture(input.unit, input.texture, sampler);
    }
}

} // namespace zelvo::render
