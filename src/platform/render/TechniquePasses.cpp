// SPDX-License-Identifier: MIT
#include "platform/render/TechniquePasses.h"

#include "platform/foundation/Console.h"
#include "platform/render/ShaderBlocks.h"
#include "platform/render/ShaderProgram.h"

#include <epoxy/gl.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace zelvo::render {
namespace {

Size scaled(Size size, double factor) {
    const auto side = [factor](int full) {
        return std::max(1, static_cast<int>(std::lround(full * factor)));
    };
    return {side(size.width), side(size.height)};
}

void setUniform(std::uint32_t program, const std::string& name, float value) {
    const GLint location = glGetUniformLocation(program, name.c_str());
    if (location >= 0)
        glProgramUniform1f(program, location, value);
}

void setSize(std::uint32_t program, Size size) {
    const GLint location = glGetUniformLocation(program, "u_size");
    if (location >= 0)
        glProgramUniform2f(
            program, location, static_cast<float>(size.width), static_cast<float>(size.height));
}

} // namespace

void TechniquePasses::draw(
    const scene::SCNTechnique& technique, const Surface& frame, double time, GraphicsState& state) {
    ensureTools();
    ensureSize(spare, frame.size, state);
    targets.resize(std::max(targets.size(), technique.targets.size()));
    for (std::size_t i = 0; i < technique.targets.size(); ++i)
        ensureSize(targets[i], scaled(frame.size, technique.targets[i]), state);

    state.set(
        {.depthTest = DepthTest::off, .depthWrite = DepthWrite::off, .culling = Culling::none});
    state.bindVertexArray(noVertices.name());
    Surface current = frame;
    Surface other = spare.surface();
    for (const auto& pass : technique.passes) {
        const std::uint32_t shader = program(pass.function);
        if (shader == 0)
            continue;
        const auto target = [&](int i) {
            return targets.at(static_cast<std::size_t>(i)).surface();
        };
        const bool readsFrame = pass.input == scene::SCNTechnique::kColor;
        const bool writesFrame = pass.output == scene::SCNTechnique::kColor;
        const Surface input = readsFrame ? current : target(pass.input);
        const Surface output = writesFrame ? other : target(pass.output);
        state.bindFramebuffer(output.framebuffer, output.size);
        state.useProgram(shader);
        state.bindTexture(kPictureUnit, input.texture, smooth.name());
        setUniform(shader, "u_time", static_cast<float>(time));
        setSize(shader, output.size);
        for (const auto& uniform : pass.uniforms)
            setUniform(shader, uniform.name, uniform.value);
        glDrawArrays(GL_TRIANGLES, 0, 3);
        if (writesFrame)
            std::swap(current, other);
    }
    if (current.framebuffer == frame.framebuffer)
        return;
    const auto [width, height] = frame.size;
    glBlitNamedFramebuffer(
        current.framebuffer,
        frame.framebuffer,
        0,
        0,
        width,
        height,
        0,
        0,
        width,
        height,
        GL_COLOR_BUFFER_BIT,
        GL_NEAREST);
}

void TechniquePasses::ensureSize(Target& target, Size wanted, GraphicsState& state) {
    if (target.size == wanted)
        return;
    state.forget(); // deleted names come back
    GLuint name = 0;
    glCreateTextures(GL_TEXTURE_2D, 1, &name);
    target.texture = TextureHandle(name);
    glTextureStorage2D(name, 1, GL_RGBA8, wanted.width, wanted.height);
    glCreateFramebuffers(1, &name);
    target.framebuffer = FramebufferHandle(name);
    glNamedFramebufferTexture(name, GL_COLOR_ATTACHMENT0, target.texture.name(), 0);
    target.size = wanted;
}

std::uint32_t TechniquePasses::program(const std::string& function) {
    const auto known = programs.find(function);
    if (known != programs.end())
        return known->second.name();
    auto built = buildProgram({"technique.vert", "technique.frag", {function}});
    if (!built)
        foundation::logLine(
            "the technique's " + function + " is not drawn: " + built.error().message);
    ProgramHandle& kept = programs[function];
    if (built)
        kept = std::move(*built);
    return kept.name();
}

void TechniquePasses::ensureTools() {
    if (noVertices)
        return;
    GLuint name = 0;
    glCreateVertexArrays(1, &name);
    noVertices = VertexArrayHandle(name);
    glCreateSamplers(1, &name);
    smooth = SamplerHandle(name);
    glSamplerParameteri(name, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    glSamplerParameteri(name, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    glSamplerParameteri(name, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
    glSamplerParameteri(name, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
}

} // namespace zelvo::render
