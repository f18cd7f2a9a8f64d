// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/GraphicsState.h"
#include "platform/render/PixelRect.h"

#include <cstdint>
#include <initializer_list>
#include <span>
#include <vector>

namespace zelvo::render {

enum class TargetFormat {
    rgba8,   ///< encoded colours
    half,    ///< linear light, brighter than white, too; alpha: see `color.glsl`
    depth32, ///< reversed, floating point
    casters, ///< 8 bits, with mipmaps: of a shadow map
    mirror,  ///< half floats, with mipmaps
    r8,      ///< a share
    line,    ///< of an edge, see edge_line.glsl
    depth16, ///< of little precision
};

/// A framebuffer and its textures, all of one size. It takes no memory until `resize` gives it a
/// size.
class RenderTarget {
public:
    /// Colours in the order of the shader's outputs; at most one depth.
    RenderTarget(std::initializer_list<TargetFormat> formats);
    /// Uses the depth of another target, which must outlive this one and have the same size.
    /// Pictures that are drawn one after the other can share one depth.
    RenderTarget(std::initializer_list<TargetFormat> formats, RenderTarget& depthLender);

    /// True if the size or the number of samples has changed; the content is undefined then. With
    /// more than one sample, a pixel keeps one colour and depth for each.
    bool resize(Size wanted, GraphicsState& state, int wantedSamples = 1);

    void bind(GraphicsState& state) const;

    /// Copies what both have (colour, depth) to a target of the same size and number of samples, and
    /// binds that one.
    void copyTo(const RenderTarget& other, GraphicsState& state) const;
    /// The same for these parts only.
    void
    copyTo(const RenderTarget& other, GraphicsState& state, std::span<const PixelRect> parts) const;

    [[nodiscard]] Size size() const { return size_; }

    [[nodiscard]] int samples() const { return samples_; }

    [[nodiscard]] std::uint32_t framebuffer() const { return framebuffer_.name(); }

    /// The first colour texture. `depth` is the target's own depth texture or the shared one.
    [[nodiscard]] std::uint32_t color() const;
    [[nodiscard]] std::uint32_t depth() const;

    /// The first colour texture, if it is `half` with several samples, as it is in memory: two
    /// unsigned numbers of 32 bits a sample. In software they are read and compared much faster.
    [[nodiscard]] std::uint32_t bits() const;

private:
    struct Attachment {
        TargetFormat format;
        TextureHandle texture;
        TextureHandle bits; ///< of `half` with several samples: the same memory
    };

    void attach();
    [[nodiscard]] const Attachment& firstColor() const;

    std::vector<Attachment> attachments;
    RenderTarget* lender = nullptr; ///< null: it has its own depth, or none
    FramebufferHandle framebuffer_;
    Size size_;
    int samples_ = 1;
    /// counts the rebuilds, because OpenGL reuses the names of deleted textures
    int generation = 0;
    int lentGeneration = 0;
};

/// The frame's picture and a spare one. A pass that reads the picture draws into the spare one and
/// exchanges the two, so that nothing is copied.
struct FramePictures {
    RenderTarget& picture;
    RenderTarget& spare;

    void exchange() const { std::swap(picture, spare); }
};

} // namespace zelvo::render
