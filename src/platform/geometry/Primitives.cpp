// SPDX-License-Identifier: MIT
#include "platform/geometry/Primitives.h"

#include "platform/foundation/Check.h"

#include <glm/common.hpp>
#include <glm/geometric.hpp>
#include <glm/trigonometric.hpp>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <vector>

namespace zelvo::geometry {

namespace {

constexpr float kPi = std::numbers::pi_v<float>;
constexpr int kChamferSteps = 5; // pieces in a quarter turn of a rounded edge

// A grid of vertices in rows of equal length. Seen from outside, rows go to the right and follow
// each other downwards.
class GridWriter {
public:
    GridWriter(Mesh& mesh_, int columns_)
        : mesh(mesh_)
        , first(static_cast<std::uint32_t>(mesh_.vertices.size()))
        , columns(static_cast<std::uint32_t>(columns_)) {}

    void addVertex(const Vertex& vertex) { mesh.vertices.push_back(vertex); }

    // Adds the triangles between the rows, except those without area (at a sphere's poles).
    void finish() {
        const auto count = static_cast<std::uint32_t>(mesh.vertices.size()) - first;
        for (std::uint32_t row = 0; row + 1 < count / columns; ++row) {
            for (std::uint32_t column = 0; column + 1 < columns; ++column) {
                const std::uint32_t a = first + row * columns + column;
                const std::uint32_t b = a + columns;
                addTriangle(a, b, b + 1);
                addTriangle(a, b + 1, a + 1);
            }
        }
    }

private:
    void addTriangle(std::uint32_t a, std::uint32_t b, std::uint32_t c) {
        const glm::vec3 p = mesh.vertices[a].position;
        const glm::vec3 cross =
            glm::cross(mesh.vertices[b].position - p, mesh.vertices[c].position - p);
        if (glm::dot(cross, cross) <= 0)
            return;
        mesh.indices.insert(mesh.indices.end(), {a, b, c});
    }

    Mesh& mesh;
    std::uint32_t first;
    std::uint32_t columns;
};

void closeElement(Mesh& mesh) {
    mesh.elements.push_back({0, static_cast<std::uint32_t>(mesh.indices.size())});
}

// One side of a box: the directions outwards, right and down, seen from outside.
struct BoxSide {
    glm::vec3 outward, right, down;
};

// clang-format off
constexpr auto kBoxSides = std::to_array<BoxSide>({
    {{0, 0, 1},  {1, 0, 0},  {0, -1, 0}},
    {{1, 0, 0},  {0, 0, -1}, {0, -1, 0}},
    {{0, 0, -1}, {-1, 0, 0}, {0, -1, 0}},
    {{-1, 0, 0}, {0, 0, 1},  {0, -1, 0}},
    {{0, 1, 0},  {1, 0, 0},  {0, 0, 1} },
    {{0, -1, 0}, {1, 0, 0},  {0, 0, -1}},
});

// clang-format on

// A grid line of a side along one axis. Lines are at the ends of the flat part and, on the rounded
// edges, at equal angles up to 45 degrees, where the next side starts. `angle` is measured from the
// side's normal, `core` is the position on the flat part.
struct GridLine {
    float core, angle;
};

std::vector<GridLine> gridLines(float flatHalf, float radius) {
    if (radius <= 0)
        return {{-flatHalf, 0}, {flatHalf, 0}};
    std::vector<GridLine> lines;
    for (int i = kChamferSteps; i >= 0; --i) {
        lines.push_back({-flatHalf, -kPi / 4 * static_cast<float>(i) / kChamferSteps});
    }
    for (int i = 0; i <= kChamferSteps; ++i) {
        lines.push_back({flatHalf, kPi / 4 * static_cast<float>(i) / kChamferSteps});
    }
    return lines;
}

// The position of a line as a share of the side's width. Texture coordinates cover the whole side.
float shareOf(const GridLine& line, float half, float radius) {
    const float place = line.core + radius * std::tan(line.angle);
    return half > 0 ? 0.5f + 0.5f * place / half : 0.5f;
}

void addBoxSide(Mesh& mesh, const BoxSide& side, const glm::vec3& half, float radius) {
    const float halfOut = glm::dot(glm::abs(side.outward), half);
    const float halfRight = glm::dot(glm::abs(side.right), half);
    const float halfDown = glm::dot(glm::abs(side.down), half);
    const std::vector<GridLine> columns = gridLines(halfRight - radius, radius);
    GridWriter grid(mesh, static_cast<int>(columns.size()));
    for (const GridLine& row : gridLines(halfDown - radius, radius)) {
        for (const GridLine& column : columns) {
            // On a rounded edge or corner, the normal points from the sphere's middle to this point
            // of a cube.
            const glm::vec3 normal = glm::normalize(
                side.outward + side.right * std::tan(column.angle) +
                side.down * std::tan(row.angle));
            const glm::vec3 core =
                side.outward * (halfOut - radius) + side.right * column.core + side.down * row.core;
            const glm::vec3 tangent =
                glm::normalize(side.right - normal * glm::dot(normal, side.right));
            grid.addVertex(
                {core + normal * radius,
                 normal,
                 glm::vec4(tangent, -1),
                 {shareOf(column, halfRight, radius), shareOf(row, halfDown, radius)}});
        }
    }
    grid.finish();
}

} // namespace

Mesh makeBox(float width, float height, float length, float chamferRadius) {
    const glm::vec3 half = glm::vec3(width, height, length) / 2.0f;
    const float least = std::min({half.x, half.y, half.z});
    CHECK(least > 0 && chamferRadius >= 0, "no box is {} x {} x {}", width, height, length);
    const float radius = std::min(chamferRadius, least);
    Mesh mesh;
    for (const BoxSide& side : kBoxSides) {
        addBoxSide(mesh, side, half, radius);
    }
    closeElement(mesh);
    return mesh;
}

Mesh makeSphere(float radius, int segmentCount) {
    CHECK(radius > 0 && segmentCount >= 3, "no sphere has {} segments", segmentCount);
    const int rows = std::max(2, segmentCount / 2);
    Mesh mesh;
    GridWriter grid(mesh, segmentCount + 1);
    for (int row = 0; row <= rows; ++row) {
        const float v = static_cast<float>(row) / static_cast<float>(rows);
        const bool isPole = row == 0 || row == rows;
        const float ring = isPole ? 0 : std::sin(v * kPi);
        for (int column = 0; column <= segmentCount; ++column) {
            const float u = static_cast<float>(column) / static_cast<float>(segmentCount);
            // The first and last columns are exactly equal. The seam is at the back.
            const float turn = 2 * kPi * static_cast<float>(column % segmentCount) /
                               static_cast<float>(segmentCount);
            const float x = -std::sin(turn);
            const float z = -std::cos(turn);
            const glm::vec3 normal(ring * x, std::cos(v * kPi), ring * z);
            grid.addVertex({normal * radius, normal, {z, 0, -x, -1}, {u, v}});
        }
    }
    grid.finish();
    closeElement(mesh);
    return mesh;
}

Mesh makeSixSidedSphere(float radius, int segmentCount) {
    CHECK(radius > 0 && segmentCount >= 4, "no sphere has {} segments", segmentCount);
    const int pieces = segmentCount / 4;
    Mesh mesh;
    for (const BoxSide& side : kBoxSides) {
        // Lines at equal angles: the vertices, and with them the picture, are spread evenly.
        const auto vertexAt = [&](const glm::vec2& uv) -> Vertex {
            const glm::vec2 slope = glm::tan((uv - 0.5f) * (kPi / 2));
            const glm::vec3 normal =
                glm::normalize(side.outward + side.right * slope.x + side.down * slope.y);
            const glm::vec3 along = side.right - normal * glm::dot(normal, side.right);
            return {normal * radius, normal, glm::vec4(glm::normalize(along), -1), uv};
        };
        GridWriter grid(mesh, pieces + 1);
        for (int row = 0; row <= pieces; ++row) {
            for (int column = 0; column <= pieces; ++column)
                grid.addVertex(vertexAt(glm::vec2(column, row) / static_cast<float>(pieces)));
        }
        grid.finish();
    }
    closeElement(mesh);
    return mesh;
}

Mesh makePlane(float width, float height) {
    CHECK(width > 0 && height > 0, "no plane is {} x {}", width, height);
    Mesh mesh;
    GridWriter grid(mesh, 2);
    for (const float v : {0.0f, 1.0f}) {
        for (const float u : {0.0f, 1.0f}) {
            // clang-format off
            grid.addVertex({
                {width * (u - 0.5f), height * (0.5f - v), 0},
                {0,                  0,                                     1},
                {1,                 0,0, -1},
                {u, v                   }
            });
            // clang-format on
        }
    }
    grid.finish();
    closeElement(mesh);
    return mesh;
}

Mesh makeTorus(float ringRadius, float pipeRadius, int ringSegments, int pipeSegments) {
    CHECK(
        ringRadius > 0 && pipeRadius > 0 && ringSegments >= 3 && pipeSegments >= 3,
        "no torus has {} by {} segments",
        ringSegments,
        pipeSegments);
    Mesh mesh;
    GridWriter grid(mesh, ringSegments + 1);
    for (int row = 0; row <= pipeSegments; ++row) {
        const float v = static_cast<float>(row) / static_cast<float>(pipeSegments);
        // From the inner equator over the top to the outside and back.
        const float lift =
            2 * kPi * static_cast<float>(row % pipeSegments) / static_cast<float>(pipeSegments);
        for (int column = 0; column <= ringSegments; ++column) {
            const float u = static_cast<float>(column) / static_cast<float>(ringSegments);
            const float turn = 2 * kPi * static_cast<float>(column % ringSegments) /
                               static_cast<float>(ringSegments);
            const glm::vec3 away(-std::sin(turn), 0, -std::cos(turn));
            const glm::vec3 normal = away * -std::cos(lift) + glm::vec3(0, std::sin(lift), 0);
            grid.addVertex(
                {away * ringRadius + normal * pipeRadius,
                 normal,
                 {away.z, 0, -away.x, -1},
                 {u, v}});
        }
    }
    grid.finish();
    closeElement(mesh);
    return mesh;
}

} // namespace zelvo::geometry
