// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/RenderTarget.h"
#include "platform/render/SCNRenderer.h"
#include "platform/render/UniformArena.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace zelvo::render {

/// A drawn picture on its way to the caller.
struct DrawnFrame {
    /// below SCNRenderer::kFramesInFlight; a slot's picture is fetched before it is queued anew
    std::size_t slot = 0;
    const RenderTarget* picture = nullptr;
    Size outputSize;
};

/// Scales drawn pictures down and brings them to memory.
class FrameDelivery {
public:
    virtual ~FrameDelivery() = default;

    /// Right after the picture was drawn; does not wait for it.
    virtual void queue(const DrawnFrame& frame, GraphicsState& state, UniformArena& uniforms) = 0;
    /// Once the graphics side is done; the bytes are valid until the next call.
    [[nodiscard]] virtual std::span<const std::uint8_t> fetch(const DrawnFrame& frame) = 0;
};

[[nodiscard]] std::unique_ptr<FrameDelivery> makeCpuDelivery();
[[nodiscard]] std::unique_ptr<FrameDelivery> makeGpuDelivery();

/// Of a picture of four bytes a pixel.
[[nodiscard]] std::size_t byteCount(Size size);

} // namespace zelvo::render
