// SPDX-License-Identifier: MIT
#include "platform/foundation/Check.h"
#include "platform/render/FrameDelivery.h"
#include "platform/render/ShaderBlocks.h"
#include "platform/render/ShaderProgram.h"

#include <epoxy/gl.h>

#include <array>

namespace zelvo::render {
namespace {

/// A texture that passes draw into.
struct Target {
    TextureHandle texture;
    FramebufferHandle framebuffer;
    Size size;

    void ensure(GLenum format, Size wanted) {
        if (size == wanted)
            return;
        GLuint name = 0;
        glCreateTextures(GL_TEXTURE_2D, 1, &name);
        texture = TextureHandle(name);
        glTextureStorage2D(name, 1, format, wanted.width, wanted.height);
        glCreateFramebuffers(1, &name);
        framebuffer = FramebufferHandle(name);
        glNamedFramebufferTexture(name, GL_COLOR_ATTACHMENT0, texture.name(), 0);
        size = wanted;
    }
};

/// Memory that the graphics side writes a picture into.
struct Transfer {
    BufferHandle buffer;
    const std::uint8_t* bytes = nullptr;
    std::size_t size = 0;

    void ensure(std::size_t wanted) {
        if (size == wanted)
            return;
        constexpr GLbitfield kAccess =
            GL_MAP_READ_BIT | GL_MAP_PERSISTENT_BIT | GL_MAP_COHERENT_BIT;
        GLuint name = 0;
        glCreateBuffers(1, &name);
        buffer = BufferHandle(name);
        glNamedBufferStorage(name, static_cast<GLsizeiptr>(wanted), nullptr, kAccess);
        bytes = static_cast<const std::uint8_t*>(
            glMapNamedBufferRange(name, 0, static_cast<GLsizeiptr>(wanted), kAccess));
        CHECK(
            bytes != nullptr,
            "the graphics driver gives no memory for a picture of {} bytes",
            wanted);
        size = wanted;
    }
};

ProgramHandle build(std::string_view fragmentFile) {
    auto program = buildProgram({"fullscreen.vert", fragmentFile});
    CHECK(program.has_value(), "{}", program.error().message);
    return std::move(*program);
}

/// Scales in a shader and sends only the finished picture, into a ring of buffers that nobody waits
/// for but the caller who wants the oldest.
class GpuDelivery final : public FrameDelivery {
public:
    GpuDelivery()
        : resolve(build("resolve.frag")) {
        GLuint name = 0;
        glCreateVertexArrays(1, &name);
        noVertices = VertexArrayHandle(name);
        glCreateSamplers(1, &name);
        sampler = SamplerHandle(name);
        glSamplerParameteri(name, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    }

    void queue(const DrawnFrame& frame, GraphicsState& state, UniformArena& uniforms) override {
        const Size size = frame.outputSize;
        Transfer& transfer = transfers.at(frame.slot);
        transfer.ensure(byteCount(size));
        state.forgetBindings(); // a target of a new size may take over an old one's name
        scaled.ensure(GL_RGBA8, size);
        FrameBlock block;
        block.frame.x = static_cast<float>(frame.drawnSize.width) / static_cast<float>(size.width);
        block.frame.y =
            static_cast<float>(frame.drawnSize.height) / static_cast<float>(size.height);
        uniforms.bind(state, kFrameBinding, block);
        run(state, resolve, frame.texture, scaled);
        glBindBuffer(GL_PIXEL_PACK_BUFFER, transfer.buffer.name());
        glReadPixels(0, 0, size.width, size.height, GL_RGBA, GL_UNSIGNED_BYTE, nullptr);
        glBindBuffer(GL_PIXEL_PACK_BUFFER, 0);
    }

    [[nodiscard]] std::span<const std::uint8_t> fetch(const DrawnFrame& frame) override {
        const Transfer& transfer = transfers.at(frame.slot);
        return {transfer.bytes, transfer.size};
    }

private:
    void
    run(GraphicsState& state,
        const ProgramHandle& program,
        std::uint32_t source,
        const Target& target) {
        state.bindFramebuffer(target.framebuffer.name(), target.size);
        state.set(
            {.depthTest = DepthTest::off, .depthWrite = DepthWrite::off, .culling = Culling::none});
        state.useProgram(program.name());
        state.bindTexture(kPictureUnit, source, sampler.name());
        state.bindVertexArray(noVertices.name());
        glDrawArrays(GL_TRIANGLES, 0, 3);
    }

    ProgramHandle resolve;
    VertexArrayHandle noVertices;
    SamplerHandle sampler;
    Target scaled;
    std::array<Transfer, SCNRenderer::kFramesInFlight> transfers;
};

} // namespace

std::unique_ptr<FrameDelivery> makeGpuDelivery() {
    return std::make_unique<GpuDelivery>();
}

} // namespace zelvo::render
