// SPDX-License-Identifier: MIT
#include "platform/render/UniformArena.h"

#include "platform/foundation/Check.h"

#include <epoxy/gl.h>

#include <algorithm>

namespace zelvo::render {
namespace {

constexpr std::size_t kFirstCapacity = 256UL * 1024UL;

} // namespace

void UniformArena::reset() {
    used = 0;
    outgrown = BufferHandle();
    if (!buffer)
        grow(kFirstCapacity);
}

std::size_t UniformArena::write(const void* block, std::size_t size) {
    if (used + size > capacity)
        grow(std::max(capacity * 2, size));
    const std::size_t offset = used;
    std::memcpy(memory + offset, block, size);
    used = (used + size + alignment - 1) / alignment * alignment;
    return offset;
}

void UniformArena::grow(std::size_t size) {
    constexpr GLbitfield kAccess = GL_MAP_WRITE_BIT | GL_MAP_PERSISTENT_BIT | GL_MAP_COHERENT_BIT;
    GLuint name = 0;
    glCreateBuffers(1, &name);
    glNamedBufferStorage(name, static_cast<GLsizeiptr>(size), nullptr, kAccess);
    // Draw calls already made keep using the old buffer.
    outgrown = std::move(buffer);
    buffer = BufferHandle(name);
    memory = static_cast<std::byte*>(
        glMapNamedBufferRange(name, 0, static_cast<GLsizeiptr>(size), kAccess));
    CHECK(memory != nullptr, "the graphics driver gives no memory for {} bytes of uniforms", size);
    capacity = size;
    used = 0;
}

} // namespace zelvo::render
