// SPDX-License-Identifier: MIT
#include "platform/render/RenderTarget.h"

#include "platform/foundation/Check.h"

#include <epoxy/gl.h>

#include <algorithm>
#include <array>
#include <bit>

namespace zelvo::render {
namespace {

struct FormatRow {
    GLenum storage;
    bool isDepth;
    int maxLevels; ///< no lookup needs coarser ones; each costs a pass
};

/// In the order of TargetFormat.
// clang-format off
constexpr auto kFormats = std::to_array<FormatRow>({
    {GL_RGBA8,              false, 1},
    {GL_RGBA16F,            false, 1},
    {GL_DEPTH_COMPONENT32F, true,  1},
    {GL_RGBA8,              false, 7},
    {GL_RGBA16F,            false, 6},
    {GL_R8,                 false, 1},
    {GL_RG8,                false, 1},
    {GL_DEPTH_COMPONENT16,  true,  1}
});

// clang-format on

const FormatRow& rowOf(TargetFormat format) {
    return kFormats.at(static_cast<std::size_t>(format));
}

TextureHandle makeTexture(TargetFormat format, Size size, int samples) {
    const GLenum storage = rowOf(format).storage;
    GLuint name = 0;
    if (samples > 1) {
        glCreateTextures(GL_TEXTURE_2D_MULTISAMPLE, 1, &name);
        glTextureStorage2DMultisample(name, samples, storage, size.width, size.height, GL_TRUE);
    } else {
        const auto side = static_cast<unsigned>(std::max(size.width, size.height));
        const int levels = std::min<int>(std::bit_width(side), rowOf(format).maxLevels);
        glCreateTextures(GL_TEXTURE_2D, 1, &name);
        glTextureStorage2D(name, levels, storage, size.width, size.height);
    }
    return TextureHandle(name);
}

TextureHandle makeBits(std::uint32_t texture) {
    GLuint name = 0;
    glGenTextures(1, &name);
    glTextureView(name, GL_TEXTURE_2D_MULTISAMPLE, texture, GL_RG32UI, 0, 1, 0, 1);
    return TextureHandle(name);
}

} // namespace

RenderTarget::RenderTarget(std::initializer_list<TargetFormat> formats) {
    for (const TargetFormat format : formats)
        attachments.push_back({format, {}, {}});
}

RenderTarget::RenderTarget(std::initializer_list<TargetFormat> formats, RenderTarget& depthLender)
    : RenderTarget(formats) {
    lender = &depthLender;
}

bool RenderTarget::resize(Size wanted, GraphicsState& state, int wantedSamples) {
    if (lender != nullptr)
        lender->resize(wanted, state, wantedSamples);
    const int lent = lender != nullptr ? lender->generation : 0;
    const bool isSame = size_ == wanted && samples_ == wantedSamples;
    if (isSame && lentGeneration == lent)
        return false;
    state.forgetBindings();
    if (!isSame) {
        for (Attachment& attachment : attachments) {
            attachment.texture = makeTexture(attachment.format, wanted, wantedSamples);
            attachment.bits = {};
            if (attachment.format == TargetFormat::half && wantedSamples > 1)
                attachment.bits = makeBits(attachment.texture.name());
        }
    }
    size_ = wanted;
    samples_ = wantedSamples;
    lentGeneration = lent;
    ++generation;
    attach();
    return true;
}

void RenderTarget::attach() {
    GLuint name = 0;
    glCreateFramebuffers(1, &name);
    framebuffer_ = FramebufferHandle(name);
    std::array<GLenum, 8> outputs{};
    std::size_t count = 0;
    for (const Attachment& attachment : attachments) {
        const auto color = static_cast<GLenum>(GL_COLOR_ATTACHMENT0 + count);
        const bool isDepth = rowOf(attachment.format).isDepth;
        glNamedFramebufferTexture(
            name, isDepth ? GL_DEPTH_ATTACHMENT : color, attachment.texture.name(), 0);
        if (!isDepth)
            outputs.at(count++) = color;
    }
    if (lender != nullptr)
        glNamedFramebufferTexture(name, GL_DEPTH_ATTACHMENT, lender->depth(), 0);
    glNamedFramebufferDrawBuffers(name, static_cast<GLsizei>(count), outputs.data());
    const GLenum status = glCheckNamedFramebufferStatus(name, GL_FRAMEBUFFER);
    CHECK(
        status == GL_FRAMEBUFFER_COMPLETE,
        "the graphics driver draws no picture of {} x {} (framebuffer status {:#x})",
        size_.width,
        size_.height,
        status);
}

void RenderTarget::bind(GraphicsState& state) const {
    state.bindFramebuffer(framebuffer_.name(), size_);
}

void RenderTarget::copyTo(const RenderTarget& other, GraphicsState& state) const {
    const PixelRect whole = PixelRect::whole(size_);
    copyTo(other, state, {&whole, 1});
}

void RenderTarget::copyTo(
    const RenderTarget& other, GraphicsState& state, std::span<const PixelRect> parts) const {
    for (const auto& [left, top, right, bottom] : parts) {
        glBlitNamedFramebuffer(
            framebuffer_.name(),
            other.framebuffer_.name(),
            left,
            top,
            right,
            bottom,
            left,
            top,
            right,
            bottom,
            GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT,
            GL_NEAREST);
    }
    other.bind(state);
}

const RenderTarget::Attachment& RenderTarget::firstColor() const {
    const auto found = std::ranges::find_if(attachments, [](const Attachment& attachment) {
        return !rowOf(attachment.format).isDepth;
    });
    CHECK(found != attachments.end(), "the target has no colour");
    return *found;
}

std::uint32_t RenderTarget::color() const {
    return firstColor().texture.name();
}

std::uint32_t RenderTarget::bits() const {
    CHECK(bool(firstColor().bits), "only half-floats with several samples are read as bits");
    return firstColor().bits.name();
}

std::uint32_t RenderTarget::depth() const {
    if (lender != nullptr)
        return lender->depth();
    const auto found = std::ranges::find_if(
        attachments, [](const Attachment& attachment) { return rowOf(attachment.format).isDepth; });
    CHECK(found != attachments.end(), "the target has no depth");
    return found->texture.name();
}

} // namespace zelvo::render
