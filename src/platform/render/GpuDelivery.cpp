// SPDX-License-Identifier: MIT
#include "platform/foundation/Check.h"
#include "platform/render/FrameDelivery.h"
#include "platform/render/FullscreenPass.h"

#include <epoxy/gl.h>

#include <array>

namespace zelvo::render {
namespace {

/// Memory that the GPU copies a picture into.
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

/// Scales in a shader, so that only the small picture is sent. The pictures go into a ring of
/// buffers, so that nobody waits except for the oldest one.
class GpuDelivery final : public FrameDelivery {
public:
    void queue(const DrawnFrame& frame, GraphicsState& state, UniformArena& uniforms) override {
        const Size size = frame.outputSize;
        const Size drawn = frame.picture->size();
        Transfer& transfer = transfers.at(frame.slot);
        transfer.ensure(byteCount(size));
        scaled.resize(size, state);
        if (drawn.width < size.width) {
            enlarge(*frame.picture, state);
        } else {
            PassBlock block;
            block.passNumbers[0].x =
                static_cast<float>(drawn.width) / static_cast<float>(size.width);
            block.passNumbers[0].y =
                static_cast<float>(drawn.height) / static_cast<float>(size.height);
            resolve.run({state, uniforms}, scaled, {{kPictureUnit, frame.picture->color()}}, block);
        }
        glBindBuffer(GL_PIXEL_PACK_BUFFER, transfer.buffer.name());
        glReadPixels(0, 0, size.width, size.height, GL_RGBA, GL_UNSIGNED_BYTE, nullptr);
        glBindBuffer(GL_PIXEL_PACK_BUFFER, 0);
    }

    [[nodiscard]] std::span<const std::uint8_t> fetch(const DrawnFrame& frame) override {
        const Transfer& transfer = transfers.at(frame.slot);
        return {transfer.bytes, transfer.size};
    }

private:
    void enlarge(const RenderTarget& picture, GraphicsState& state) const {
        const Size from = picture.size();
        const Size to = scaled.size();
        glBlitNamedFramebuffer(
            picture.framebuffer(),
            scaled.framebuffer(),
            0,
            0,
            from.width,
            from.height,
            0,
            0,
            to.width,
            to.height,
            GL_COLOR_BUFFER_BIT,
            GL_LINEAR);
        scaled.bind(state);
    }

    FullscreenPass resolve{"resolve.frag"};
    RenderTarget scaled{TargetFormat::rgba8};
    std::array<Transfer, SCNRenderer::kFramesInFlight> transfers;
};

} // namespace

std::unique_ptr<FrameDelivery> makeGpuDelivery() {
    return std::make_unique<GpuDelivery>();
}

} // namespace zelvo::render
