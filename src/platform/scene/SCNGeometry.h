// SPDX-License-Identifier: MIT
#pragma once

#include "platform/geometry/Mesh.h"
#include "platform/scene/SCNMaterial.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace zelvo::scene {

/// A shape with the materials of its elements. A material list shorter than the elements repeats
/// from its start. The mesh is built when it is first asked for after a change; `revision` is
/// unique per built mesh in the whole process, so that a renderer can keep what it uploaded. Main
/// thread only.
class SCNGeometry {
public:
    virtual ~SCNGeometry() = default;

    std::vector<SCNMaterialPtr> materials;

    [[nodiscard]] const geometry::Mesh& mesh() const;
    [[nodiscard]] std::uint64_t revision() const;
    [[nodiscard]] geometry::Box boundingBox() const;

    /// The material of an element by the repetition rule; null if there are no materials (drawn
    /// with the default one).
    [[nodiscard]] const SCNMaterial* materialFor(std::size_t element) const;

protected:
    /// Drops the built mesh; the next question builds it anew.
    void setNeedsRebuild();
    [[nodiscard]] virtual geometry::Mesh build() const = 0;

private:
    struct Built;
    [[nodiscard]] const Built& ensureBuilt() const;

    mutable std::shared_ptr<const Built> built;
};

using SCNGeometryPtr = std::shared_ptr<SCNGeometry>;

} // namespace zelvo::scene
