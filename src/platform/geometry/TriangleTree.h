// SPDX-License-Identifier: MIT
#pragma once

#include "platform/geometry/Mesh.h"
#include "platform/geometry/Ray.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <vector>

namespace zelvo::geometry {

/// A place where a ray meets a triangle.
struct RayHit {
    float distance = 0;         ///< in lengths of the ray's direction
    std::uint32_t triangle = 0; ///< its first index is at three times this number
    glm::vec2 weights{0};       ///< of its second and third corner; the first has the rest to 1
    bool isFront = true;        ///< the ray comes from outside
};

/// Finds the triangle of a mesh that a ray meets first, without a look at most of them. A tree of
/// boxes: each box holds two smaller ones, or a few triangles. Building it takes about half a
/// microsecond a triangle.
class TriangleTree {
public:
    /// Copies what it needs of the mesh.
    explicit TriangleTree(const Mesh& mesh);

    using Accepts = std::function<bool(const RayHit&)>;

    /// The nearest hit that is accepted; nothing if there is none.
    [[nodiscard]] std::optional<RayHit> nearest(const Ray& ray, const Accepts& accepts) const;

private:
    struct Triangle {
        glm::vec3 corner;
        glm::vec3 toSecond, toThird;
        std::uint32_t number;
    };

    struct Branch {
        Box box;
        std::uint32_t first = 0; ///< of a leaf: the first triangle; else: the second child
        std::uint32_t count = 0; ///< triangles of a leaf; 0: the first child is the next branch
    };

    struct Unbuilt;

    void addBranch(std::span<Unbuilt> parts);
    void addLeaf(Branch& branch, std::span<const Unbuilt> parts);

    std::vector<Triangle> triangles;
    std::vector<Branch> branches;
};

} // namespace zelvo::geometry
