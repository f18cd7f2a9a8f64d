// SPDX-License-Identifier: MIT
#pragma once

#include "platform/geometry/Mesh.h"
#include "platform/scene/SCNMaterial.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace zelvo::geometry {
class TriangleTree;
} // namespace zelvo::geometry

namespace zelvo::scene {

/// A mesh and the materials of its elements. If there are fewer materials than elements, they
/// repeat. The mesh is built on demand after a change. Each built mesh gets a `revision` that is
/// unique in the process, so that a renderer can cache its upload. Main thread only.
class SCNGeometry {
public:
    virtual ~SCNGeometry() = default;

    std::vector<SCNMaterialPtr> materials;

    [[nodiscard]] const geometry::Mesh& mesh() const;
    [[nodiscard]] std::uint64_t revision() const;
    [[nodiscard]] geometry::Box boundingBox() const;
    /// For rays. Built with the first call after a change of the mesh.
    [[nodiscard]] const geometry::TriangleTree& triangles() const;

    /// The material of an element (materials repeat). Null if there are none; then the default
    /// material is drawn.
    [[nodiscard]] const SCNMaterial* materialFor(std::size_t element) const;

protected:
    /// Discards the mesh; it is built again on demand.
    void setNeedsRebuild();
    [[nodiscard]] virtual geometry::Mesh build() const = 0;

private:
    struct Built;
    [[nodiscard]] const Built& ensureBuilt() const;

    mutable std::shared_ptr<const Built> built;
};

using SCNGeometryPtr = std::shared_ptr<SCNGeometry>;

} // namespace zelvo::scene
