// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/GraphicsState.h"
#include "platform/render/Handles.h"

#include <cstddef>
#include <span>
#include <vector>

namespace zelvo::render {

/// What the vertex shader reads of an instance, at one location.
struct InstanceAttribute {
    enum class Kind {
        floats,
        color ///< bytes that the shader reads as 0 .. 1
    };

    Kind kind;
    int count;          ///< of numbers
    std::size_t offset; ///< in the instance, in bytes
};

/// Quads that are others in each frame: an instance for each, whose four corners the vertex shader
/// places.
class InstanceBuffer {
public:
    /// The attributes are in the order of the shader's locations.
    InstanceBuffer(std::size_t bytesOfInstance, std::vector<InstanceAttribute> instanceAttributes);

    /// Replaces all instances.
    void upload(std::span<const std::byte> instances);

    /// Runs the program in use on some of the instances.
    void draw(GraphicsState& state, std::size_t first, std::size_t count) const;

    void drawAll(GraphicsState& state) const { draw(state, 0, size / stride); }

private:
    void ensureReady();

    std::size_t stride;
    std::vector<InstanceAttribute> attributes;
    VertexArrayHandle array;
    BufferHandle buffer;
    // In bytes.
    std::size_t size = 0;
    std::size_t capacity = 0;
};

} // namespace zelvo::render
