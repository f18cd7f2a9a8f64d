// SPDX-License-Identifier: MIT
#include "platform/render/MeshStore.h"

#include <epoxy/gl.h>

#include <array>
#include <cstddef>

namespace zelvo::render {
namespace {

using geometry::Vertex;

constexpr std::uint64_t kKeptFrames = 120;

struct AttributeRow {
    GLint components;
    std::size_t offset;
};

// clang-format off
constexpr auto kAttributes = std::to_array<AttributeRow>({
    {3, offsetof(Vertex, position)},
    {3, offsetof(Vertex, normal)  },
    {4, offsetof(Vertex, tangent) },
    {2, offsetof(Vertex, uv)      }
});

// clang-format on

template <class T> BufferHandle makeBuffer(const std::vector<T>& values) {
    GLuint name = 0;
    glCreateBuffers(1, &name);
    glNamedBufferStorage(
        name, static_cast<GLsizeiptr>(values.size() * sizeof(T)), values.data(), 0);
    return BufferHandle(name);
}

VertexArrayHandle makeVertexArray(const BufferHandle& vertices, const BufferHandle& indices) {
    GLuint name = 0;
    glCreateVertexArrays(1, &name);
    glVertexArrayVertexBuffer(name, 0, vertices.name(), 0, sizeof(Vertex));
    glVertexArrayElementBuffer(name, indices.name());
    for (GLuint location = 0; location < kAttributes.size(); ++location) {
        const AttributeRow& row = kAttributes.at(location);
        glEnableVertexArrayAttrib(name, location);
        glVertexArrayAttribFormat(
            name, location, row.components, GL_FLOAT, GL_FALSE, static_cast<GLuint>(row.offset));
        glVertexArrayAttribBinding(name, location, 0);
    }
    return VertexArrayHandle(name);
}

} // namespace

std::uint32_t MeshStore::vertexArray(const scene::SCNGeometry& geometry) {
    Uploaded& entry = meshes[geometry.revision()];
    entry.lastFrame = frame;
    if (!entry.array) {
        const geometry::Mesh& mesh = geometry.mesh();
        entry.vertices = makeBuffer(mesh.vertices);
        entry.indices = makeBuffer(mesh.indices);
        entry.array = makeVertexArray(entry.vertices, entry.indices);
    }
    return entry.array.name();
}

bool MeshStore::prune() {
    ++frame;
    return std::erase_if(meshes, [this](const auto& entry) {
               return entry.second.lastFrame + kKeptFrames < frame;
           }) > 0;
}

} // namespace zelvo::render
