// SPDX-License-Identifier: MIT
#include "platform/render/GraphicsState.h"

#include "platform/foundation/Check.h"

#include <epoxy/gl.h>

namespace zelvo::render {
namespace {

struct BlendRow {
    GLenum equation;
    GLenum source;
    GLenum target;
};

/// In the order of `Blend`. For multiply, the shader mixes the colour with white by its alpha.
// clang-format off
constexpr auto kBlends = std::to_array<BlendRow>({
    {GL_FUNC_ADD,              GL_ONE,       GL_ZERO               },
    {GL_FUNC_ADD,              GL_ONE,       GL_ONE_MINUS_SRC_ALPHA},
    {GL_FUNC_ADD,              GL_ONE,       GL_ONE                },
    {GL_FUNC_REVERSE_SUBTRACT, GL_ONE,       GL_ONE                },
    {GL_FUNC_ADD,              GL_DST_COLOR, GL_ZERO               },
    {GL_FUNC_ADD,              GL_ONE,       GL_ONE_MINUS_SRC_COLOR},
    {GL_MAX,                   GL_ONE,       GL_ONE                }
});
// clang-format on

constexpr auto kDepthFunctions =
    std::to_array<GLenum>({GL_ALWAYS, GL_GREATER, GL_GEQUAL, GL_EQUAL});

void toggle(GLenum capability, bool isOn) {
    if (isOn) {
        glEnable(capability);
    } else {
        glDisable(capability);
    }
}

void setDepth(DepthTest test, DepthWrite write) {
    toggle(GL_DEPTH_TEST, test != DepthTest::off);
    glDepthFunc(kDepthFunctions.at(static_cast<std::size_t>(test)));
    glDepthMask(write == DepthWrite::on ? GL_TRUE : GL_FALSE);
}

void setBlend(Blend blend, Colors colors) {
    const BlendRow& row = kBlends.at(static_cast<std::size_t>(blend));
    toggle(GL_BLEND, blend != Blend::off);
    glBlendEquationSeparate(row.equation, GL_FUNC_ADD);
    // The target's alpha is the share of colours of the scene.
    const GLenum added = colors == Colors::ofScene ? GL_ONE : GL_ZERO;
    const GLenum kept = blend == Blend::over ? GL_ONE_MINUS_SRC_ALPHA : GL_ONE;
    glBlendFuncSeparate(row.source, row.target, blend == Blend::over ? added : GL_ZERO, kept);
}

} // namespace

void GraphicsState::forget() {
    *this = GraphicsState();
    glClipControl(GL_UPPER_LEFT, GL_ZERO_TO_ONE);
    glClearDepth(0);
    glDisable(GL_SCISSOR_TEST);
    glDisable(GL_STENCIL_TEST);
    glDisable(GL_FRAMEBUFFER_SRGB);
    glDisable(GL_PRIMITIVE_RESTART);
    glDisable(GL_RASTERIZER_DISCARD);
    glDisable(GL_SAMPLE_ALPHA_TO_COVERAGE);
    glDisable(GL_DITHER);
    glEnable(GL_TEXTURE_CUBE_MAP_SEAMLESS);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glDisable(GL_POLYGON_OFFSET_FILL);
    set({});
}

void GraphicsState::handBack() {
    *this = GraphicsState();
    glClipControl(GL_LOWER_LEFT, GL_NEGATIVE_ONE_TO_ONE);
    glClearDepth(1);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 4);
    glPixelStorei(GL_PACK_ALIGNMENT, 4);
    glDisable(GL_DEPTH_TEST);
    glDepthFunc(GL_LESS);
    glDepthMask(GL_TRUE);
    glDisable(GL_CULL_FACE);
    glFrontFace(GL_CCW);
    glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    glDisable(GL_BLEND);
    glBlendEquation(GL_FUNC_ADD);
    glBlendFunc(GL_ONE, GL_ZERO);
    glDisable(GL_TEXTURE_CUBE_MAP_SEAMLESS);
    glEnable(GL_DITHER);
    glUseProgram(0);
    glBindVertexArray(0);
    for (GLuint unit = 0; unit < kUnits; ++unit) {
        glBindTextureUnit(unit, 0);
        glBindSampler(unit, 0);
    }
}

void GraphicsState::bindFramebuffer(std::uint32_t name, Size size) {
    if (framebuffer != name)
        glBindFramebuffer(GL_FRAMEBUFFER, name);
    if (viewport != size)
        glViewport(0, 0, size.width, size.height);
    framebuffer = name;
    viewport = size;
}

void GraphicsState::useProgram(std::uint32_t name) {
    if (program == name)
        return;
    glUseProgram(name);
    program = name;
}

void GraphicsState::bindVertexArray(std::uint32_t name) {
    if (vertexArray == name)
        return;
    glBindVertexArray(name);
    vertexArray = name;
}

void GraphicsState::bindTexture(std::uint32_t unit, std::uint32_t texture, std::uint32_t sampler) {
    std::optional<Texture>& bound = textures.at(unit);
    if (!bound || bound->texture != texture)
        glBindTextureUnit(unit, texture);
    if (!bound || bound->sampler != sampler)
        glBindSampler(unit, sampler);
    bound = Texture{texture, sampler};
}

void GraphicsState::bindUniforms( // NOLINT(readability-convert-member-functions-to-static): state
                                  // of the context
    std::uint32_t binding,
    std::uint32_t buffer,
    std::size_t offset,
    std::size_t size) {
    glBindBufferRange(
        GL_UNIFORM_BUFFER,
        binding,
        buffer,
        static_cast<GLintptr>(offset),
        static_cast<GLsizeiptr>(size));
}

void GraphicsState::set(const RasterState& state) {
    const bool all = !raster;
    const RasterState old = raster.value_or(RasterState{});
    raster = state;
    if (!all && old == state)
        return;
    if (all || old.depthTest != state.depthTest || old.depthWrite != state.depthWrite) {
        setDepth(state.depthTest, state.depthWrite);
    }
    if (all || old.culling != state.culling)
        toggle(GL_CULL_FACE, state.culling == Culling::backFaces);
    if (all || old.winding != state.winding) {
        glFrontFace(state.winding == Winding::counterClockwise ? GL_CCW : GL_CW);
    }
    if (all || old.fill != state.fill) {
        glPolygonMode(GL_FRONT_AND_BACK, state.fill == Fill::faces ? GL_FILL : GL_LINE);
    }
    if (all || old.colorWrite != state.colorWrite) {
        const GLboolean on = state.colorWrite == ColorWrite::on ? GL_TRUE : GL_FALSE;
        glColorMask(on, on, on, on);
    }
    if (all || old.blend != state.blend || old.colors != state.colors)
        setBlend(state.blend, state.colors);
}

void GraphicsState::setScissor( // NOLINT(readability-convert-member-functions-to-static): state of
                                // the context
    const std::optional<PixelRect>& part) {
    toggle(GL_SCISSOR_TEST, part.has_value());
    if (part)
        glScissor(part->left, part->top, part->right - part->left, part->bottom - part->top);
}

void GraphicsState::clearDepth() {
    set({}); // glClear respects the write masks
    glClear(GL_DEPTH_BUFFER_BIT);
}

void GraphicsState::clearColor(const glm::vec3& color) {
    set({});
    glClearColor(color.r, color.g, color.b, 0);
    glClear(GL_COLOR_BUFFER_BIT);
}

void GraphicsState::clear() {
    set({});
    glClearColor(0, 0, 0, 0);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
}

void GraphicsState::forgetBindings() {
    framebuffer.reset();
    program.reset();
    vertexArray.reset();
    textures = {};
}

} // namespace zelvo::render
