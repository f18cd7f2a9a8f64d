// SPDX-License-Identifier: MIT
#include "platform/render/AreaResampler.h"
#include "platform/render/FrameDelivery.h"
#include "platform/render/LinearResampler.h"

#include <epoxy/gl.h>

namespace zelvo::render {
namespace {

/// For drivers that draw into main memory: reading the picture is a plain copy, and scaling it in
/// C++ is faster than in a software shader.
class CpuDelivery final : public FrameDelivery {
public:
    void queue(const DrawnFrame& /*frame*/, GraphicsState& /*state*/, UniformArena& /*uniforms*/)
        override {}

    [[nodiscard]] std::span<const std::uint8_t> fetch(const DrawnFrame& frame) override {
        const Size size = frame.outputSize;
        const Size drawnSize = frame.picture->size();
        if (drawnSize == size) {
            read(*frame.picture, output);
            return output;
        }
        read(*frame.picture, drawn);
        output.resize(byteCount(size));
        const bool isNew = sizes != Sizes{drawnSize, size};
        sizes = {drawnSize, size};
        if (drawnSize.width < size.width) {
            if (!enlarger || isNew)
                enlarger.emplace(drawnSize, size);
            enlarger->write(drawn, output.data());
            return output;
        }
        if (!resampler || isNew)
            resampler.emplace(drawnSize, size);
        const std::size_t rowBytes = byteCount({size.width, 1});
        for (int y = 0; y < size.height; ++y)
            resampler->writeRow(drawn, y, output.data() + static_cast<std::size_t>(y) * rowBytes);
        return output;
    }

private:
    static void read(const RenderTarget& picture, std::vector<std::uint8_t>& pixels) {
        const Size size = picture.size();
        pixels.resize(byteCount(size));
        glBindFramebuffer(GL_READ_FRAMEBUFFER, picture.framebuffer());
        glReadPixels(0, 0, size.width, size.height, GL_RGBA, GL_UNSIGNED_BYTE, pixels.data());
    }

    struct Sizes {
        Size drawn;
        Size output;

        friend bool operator==(const Sizes&, const Sizes&) = default;
    };

    // Of these sizes, once they are needed.
    Sizes sizes;
    std::optional<LinearResampler> enlarger;
    std::optional<AreaResampler> resampler;
    std::vector<std::uint8_t> drawn;
    std::vector<std::uint8_t> output;
};

} // namespace

std::unique_ptr<FrameDelivery> makeCpuDelivery() {
    return std::make_unique<CpuDelivery>();
}

std::size_t byteCount(Size size) {
    return static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height) * 4;
}

} // namespace zelvo::render
