// SPDX-License-Identifier: MIT
#include "platform/render/InstanceBuffer.h"

#include <epoxy/gl.h>

#include <algorithm>
#include <utility>

namespace zelvo::render {
namespace {

constexpr std::size_t kMinCapacity = std::size_t{64} * 1024; ///< bytes

} // namespace

InstanceBuffer::InstanceBuffer(
    std::size_t bytesOfInstance, std::vector<InstanceAttribute> instanceAttributes)
    : stride(bytesOfInstance)
    , attributes(std::move(instanceAttributes)) {}

void InstanceBuffer::upload(std::span<const std::byte> instances) {
    ensureReady();
    // A new buffer each time, because frames in flight still read the old one.
    size = instances.size();
    capacity = std::max({capacity, kMinCapacity, size});
    const GLuint name = buffer.name();
    glNamedBufferData(name, static_cast<GLsizeiptr>(capacity), nullptr, GL_STREAM_DRAW);
    glNamedBufferSubData(name, 0, static_cast<GLsizeiptr>(size), instances.data());
}

void InstanceBuffer::draw(GraphicsState& state, std::size_t first, std::size_t count) const {
    state.bindVertexArray(array.name());
    glDrawArraysInstancedBaseInstance(
        GL_TRIANGLE_STRIP, 0, 4, static_cast<GLsizei>(count), static_cast<GLuint>(first));
}

void InstanceBuffer::ensureReady() {
    if (array)
        return;
    GLuint name = 0;
    glCreateVertexArrays(1, &name);
    array = VertexArrayHandle(name);
    glCreateBuffers(1, &name);
    buffer = BufferHandle(name);
    glVertexArrayVertexBuffer(array.name(), 0, buffer.name(), 0, static_cast<GLsizei>(stride));
    glVertexArrayBindingDivisor(array.name(), 0, 1);
    GLuint location = 0;
    for (const InstanceAttribute& attribute : attributes) {
        const bool isColor = attribute.kind == InstanceAttribute::Kind::color;
        glEnableVertexArrayAttrib(array.name(), location);
        glVertexArrayAttribBinding(array.name(), location, 0);
        glVertexArrayAttribFormat(
            array.name(),
            location,
            attribute.count,
            isColor ? GL_UNSIGNED_BYTE : GL_FLOAT,
            isColor ? GL_TRUE : GL_FALSE,
            static_cast<GLuint>(attribute.offset));
        ++location;
    }
}

} // namespace zelvo::render
