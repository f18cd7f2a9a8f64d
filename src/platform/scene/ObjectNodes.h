// SPDX-License-Identifier: MIT
#pragma once

#include "platform/object/ObjectScene.h"
#include "platform/scene/SCNNode.h"

#include <vector>

namespace zelvo::scene {

/// The materials of a 3D file as the renderer draws them, in the file's order. Decodes the pictures,
/// which takes long; any thread. Pictures that cannot be decoded give a warning of the scene. If it
/// is stopped, the materials that come after are left out.
///
/// Limit: a surface has one set of texture coordinates.
[[nodiscard]] std::vector<SCNMaterialPtr>
materialsOf(object::ObjectScene& scene, const object::Watch& watch = {});

/// The file as a subtree: a node for each placement, with y up. The lengths stay the file's own, but
/// a file that is far from its zero is moved there. The geometries of pieces with vertex colours are
/// SCNColoredGeometry. Takes the geometry. Main thread only.
[[nodiscard]] SCNNodePtr
nodeOf(object::ObjectScene scene, const std::vector<SCNMaterialPtr>& materials);

} // namespace zelvo::scene
