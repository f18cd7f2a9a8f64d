// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/GraphicsState.h"
#include "platform/render/Handles.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace zelvo::render {

/// Memory for one frame's uniform blocks, written once and read by the graphics side until the
/// frame is done. Grows to what the largest frame needed and is then only reused.
class UniformArena {
public:
    explicit UniformArena(int offsetAlignment)
        : alignment(static_cast<std::size_t>(offsetAlignment)) {}

    /// Starts over; the graphics side must be done with what was written before.
    void reset();

    /// Copies the block in and binds it.
    template <class Block>
    void bind(GraphicsState& state, std::uint32_t binding, const Block& block) {
        const std::size_t offset = write(&block, sizeof(Block));
        state.bindUniforms(binding, buffer.name(), offset, sizeof(Block));
    }

private:
    [[nodiscard]] std::size_t write(const void* block, std::size_t size);
    void grow(std::size_t size);

    std::size_t alignment;
    BufferHandle buffer;
    BufferHandle outgrown; ///< still read by the draw calls before the growth
    std::byte* memory = nullptr;
    std::size_t capacity = 0;
    std::size_t used = 0;
};

} // namespace zelvo::render
