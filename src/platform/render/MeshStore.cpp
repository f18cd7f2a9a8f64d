// SPDX-License-Identifier: MIT
#include "platform/render/MeshStore.h"

#include "platform/image/Color.h"
#include "platform/scene/SCNColoredGeometry.h"

#include <epoxy/gl.h>

#include <array>
#include <cmath>
#include <cstddef>

namespace zelvo::render {
namespace {

using geometry::Vertex;

constexpr std::uint64_t kKeptFrames = 120;

struct AttributeRow {
    GLuint location;
    GLint components;
    std::size_t offset;
};

// clang-format off
constexpr auto kAttributes = std::to_array<AttributeRow>({
    {0, 3, offsetof(Vertex, position)},
    {1, 3, offsetof(Vertex, normal)  },
    {2, 4, offsetof(Vertex, tangent) },
    {3, 2, offsetof(Vertex, uv)      },
    {5, 1, offsetof(Vertex, openness)}
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
    for (const AttributeRow& row : kAttributes) {
        glEnableVertexArrayAttrib(name, row.location);
        glVertexArrayAttribFormat(
            name,
            row.location,
            row.components,
            GL_FLOAT,
            GL_FALSE,
            static_cast<GLuint>(row.offset));
        glVertexArrayAttribBinding(name, row.location, 0);
    }
    return VertexArrayHandle(name);
}

/// Linear, so that the mixture between two vertices is linear, too.
std::vector<glm::u16vec4> linearColors(const std::vector<glm::u8vec4>& colors) {
    constexpr float kMost = 65535;
    std::array<std::uint16_t, 256> table{};
    for (std::size_t i = 0; i < table.size(); ++i) {
        const float linear = image::linearFromSRGB(static_cast<float>(i) / 255);
        table.at(i) = static_cast<std::uint16_t>(std::lround(linear * kMost));
    }
    std::vector<glm::u16vec4> result;
    result.reserve(colors.size());
    for (const glm::u8vec4& color : colors)
        result.emplace_back(
            table.at(color.r), table.at(color.g), table.at(color.b), color.a * 257); // 255 is 65535
    return result;
}

void addColors(const VertexArrayHandle& array, const BufferHandle& colors) {
    constexpr GLuint kLocation = 4;
    constexpr GLuint kBinding = 1;
    const GLuint name = array.name();
    glVertexArrayVertexBuffer(name, kBinding, colors.name(), 0, sizeof(glm::u16vec4));
    glEnableVertexArrayAttrib(name, kLocation);
    glVertexArrayAttribFormat(name, kLocation, 4, GL_UNSIGNED_SHORT, GL_TRUE, 0);
    glVertexArrayAttribBinding(name, kLocation, kBinding);
}

} // namespace

std::uint32_t MeshStore::vertexArray(const scene::SCNGeometry& geometry, std::size_t level) {
    const geometry::Mesh& mesh = geometry.mesh();
    Uploaded& entry = meshes[geometry.revision()];
    entry.lastFrame = frame;
    if (!entry.vertices) {
        entry.vertices = makeBuffer(mesh.vertices);
        entry.levels.resize(1 + mesh.coarser.size());
        const auto* colored = dynamic_cast<const scene::SCNColoredGeometry*>(&geometry);
        if (colored != nullptr && !colored->colors().empty())
            entry.colors = makeBuffer(linearColors(colored->colors()));
    }
    Level& drawn = entry.levels.at(level);
    if (!drawn.array) {
        drawn.indices = makeBuffer(level == 0 ? mesh.indices : mesh.coarser[level - 1].indices);
        drawn.array = makeVertexArray(entry.vertices, drawn.indices);
        if (entry.colors)
            addColors(drawn.array, entry.colors);
    }
    return drawn.array.name();
}

bool MeshStore::prune() {
    ++frame;
    return std::erase_if(meshes, [this](const auto& entry) {
               return entry.second.lastFrame + kKeptFrames < frame;
           }) > 0;
}

} // namespace zelvo::render
