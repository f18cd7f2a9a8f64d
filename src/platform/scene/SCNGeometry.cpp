// SPDX-License-Identifier: MIT
#include "platform/scene/SCNGeometry.h"

#include "platform/geometry/TriangleTree.h"

#include <optional>
#include <utility>

namespace zelvo::scene {

struct SCNGeometry::Built {
    geometry::Mesh mesh;
    geometry::Box box;
    std::uint64_t revision;
    mutable std::optional<geometry::TriangleTree> triangles; ///< empty until a ray asks
};

const geometry::Mesh& SCNGeometry::mesh() const {
    return ensureBuilt().mesh;
}

std::uint64_t SCNGeometry::revision() const {
    return ensureBuilt().revision;
}

geometry::Box SCNGeometry::boundingBox() const {
    return ensureBuilt().box;
}

const geometry::TriangleTree& SCNGeometry::triangles() const {
    const Built& made = ensureBuilt();
    if (!made.triangles)
        made.triangles.emplace(made.mesh);
    return *made.triangles;
}

const SCNMaterial* SCNGeometry::materialFor(std::size_t element) const {
    return materials.empty() ? nullptr : materials[element % materials.size()].get();
}

void SCNGeometry::setNeedsRebuild() {
    built.reset();
}

const SCNGeometry::Built& SCNGeometry::ensureBuilt() const {
    static std::uint64_t lastRevision = 0;
    if (!built) {
        geometry::Mesh mesh = build();
        const geometry::Box box = mesh.bounds();
        built = std::make_shared<const Built>(
            Built{std::move(mesh), box, ++lastRevision, std::nullopt});
    }
    return *built;
}

} // namespace zelvo::scene
