// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/object/ObjectScene.h"
#include "platform/object/Polygons.h"
#include "platform/usd/Limits.h"
#include "platform/usd/Stage.h"
#include "platform/usd/Surface.h"

#include <glm/mat4x4.hpp>

#include <string>
#include <unordered_map>

namespace zelvo::usd {

/// Collects what is drawn of a stage: meshes, basic shapes, instances.
class SceneReader {
public:
    SceneReader(Stage& source, const Limits& limits, const object::Watch& given)
        : stage(source)
        , surfaces(source, scene)
        , visitBudget(limits.prims)
        , cornerBudget(limits.corners)
        , watch(given) {}

    /// Errors: `malformed` if nothing is drawn, `tooLarge`, `cancelled`.
    [[nodiscard]] foundation::Result<object::ObjectScene> read();

private:
    /// What a prim has from its parents.
    struct Inherited {
        glm::dmat4 world{1};
        bool isForDisplay = true; ///< not a stand-in and not a guide
        int depth = 0;
    };

    /// The pieces of a prim, made once and placed as often as it is drawn.
    struct Drawn {
        object::AddedPieces pieces;
        std::size_t points = 0;
        std::size_t faces = 0;
        std::size_t triangles = 0; ///< also those without area, of which there are no pieces
    };
    /// Whether a prim counts that is only described, but not defined.
    enum class Need { defined, described };

    foundation::Result<void> visit(const Prim& prim, const Inherited& inherited, Need need);
    foundation::Result<void> visitChildren(const Prim& prim, const Inherited& inherited);
    foundation::Result<void> visitInstances(const Prim& prim, const Inherited& inherited);
    foundation::Result<void> draw(const Prim& prim, const glm::dmat4& world);
    foundation::Result<const Drawn*> drawnOf(const Prim& prim);
    [[nodiscard]] object::Polygons polygonsOf(const Prim& prim);

    Stage& stage;
    object::ObjectScene scene;
    SurfaceReader surfaces;
    Budget visitBudget;
    Budget cornerBudget;
    const object::Watch& watch;
    std::size_t visitedPrims = 0; ///< prims, at most all
    std::size_t triangles = 0;    ///< of all that is drawn
    std::unordered_map<const Prim*, Drawn> drawn;
};

} // namespace zelvo::usd
