// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/GraphicsState.h"
#include "platform/render/Handles.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace zelvo::render {

/// Memory for the uniform blocks of one frame. It grows to the needs of the largest frame and is
/// then reused.
class UniformArena {
public:
    explicit UniformArena(int offsetAlignment)
        : alignment(static_cast<std::size_t>(offsetAlignment)) {}

    /// Starts a new frame. The GPU must have finished the last one that used this memory.
    void reset();

    /// Copies the block into the buffer and binds it.
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
    BufferHandle outgrown; ///< draw calls made before the growth still read it
    std::byte* memory = nullptr;
    std::size_t capacity = 0;
    std::size_t used = 0;
};

} // namespace zelvo::render
