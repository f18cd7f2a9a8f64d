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

/// A drawn picture that is on its way to the caller.
struct DrawnFrame {
    /// index below SCNRenderer::kFramesInFlight; fetch a slot's picture before the slot is queued
    /// again
    std::size_t slot = 0;
    const RenderTarget* picture = nullptr;
    Size outputSize;
};

/// Scales drawn pictures to the size that is wanted and copies them to memory. One implementation for each kind of
/// driver.
class FrameDelivery {
public:
    virtual ~FrameDelivery() = default;

    /// Call it right after the picture was drawn. Does not wait.
    virtual void queue(const DrawnFrame& frame, GraphicsState& state, UniformArena& uniforms) = 0;
    /// Call it when the GPU has finished the picture. The bytes are valid until the next call.
    [[nodiscard]] virtual std::span<const std::uint8_t> fetch(const DrawnFrame& frame) = 0;
};

[[nodiscard]] std::unique_ptr<FrameDelivery> makeCpuDelivery();
[[nodiscard]] std::unique_ptr<FrameDelivery> makeGpuDelivery();

/// Of a picture with four bytes a pixel.
[[nodiscard]] std::size_t byteCount(Size size);

} // namespace zelvo::render
