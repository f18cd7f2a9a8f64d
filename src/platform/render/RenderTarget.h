// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/GraphicsState.h"

#include <cstdint>
#include <initializer_list>
#include <vector>

namespace zelvo::render {

enum class TargetFormat {
    rgba8,   ///< colours as they are encoded
    depth32, ///< reversed, floating point
};

/// A picture that passes draw into: a framebuffer and the textures it is made of, all of one size.
/// It has no size and takes no memory until it is first given one.
class RenderTarget {
public:
    /// Colours in the order of the shader's outputs, and one depth at most.
    RenderTarget(std::initializer_list<TargetFormat> formats);
    /// With the depth of another target, which outlives this one and follows its size: pictures
    /// that are drawn one after the other need no more than one depth.
    RenderTarget(std::initializer_list<TargetFormat> formats, RenderTarget& depthLender);

    /// True: it had another size and was made anew; its content is undefined then.
    bool resize(Size wanted, GraphicsState& state);

    void bind(GraphicsState& state) const;

    /// What both of them have, colour and depth. The other one, of the same size, is then bound.
    void copyTo(const RenderTarget& other, GraphicsState& state) const;

    [[nodiscard]] Size size() const { return size_; }

    [[nodiscard]] std::uint32_t framebuffer() const { return framebuffer_.name(); }

    /// Texture of the first colour; of the depth, its own or the lender's.
    [[nodiscard]] std::uint32_t color() const;
    [[nodiscard]] std::uint32_t depth() const;

private:
    struct Attachment {
        TargetFormat format;
        TextureHandle texture;
    };

    void attach();

    std::vector<Attachment> attachments;
    RenderTarget* lender = nullptr; ///< null: the depth is its own, if it has one
    FramebufferHandle framebuffer_;
    Size size_;
    int generation = 0; ///< counts how often it was made: names of deleted textures come back
    int lentGeneration = 0;
};

/// The picture of a frame and a second one like it. A pass that reads the picture draws the second,
/// and then they change places: nothing is copied.
struct FramePictures {
    RenderTarget& picture;
    RenderTarget& spare;

    void exchange() const { std::swap(picture, spare); }
};

} // namespace zelvo::render
