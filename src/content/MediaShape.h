// SPDX-License-Identifier: MIT
#pragma once

#include "node/DefaultSCNNode.h"

#include <memory>
#include <string>
#include <vector>

namespace zelvo::content {

struct ShapeOutline;
struct SceneFigure;

/// A solid for the media node. Shapes are made once for the process; their meshes are built when
/// first needed.
class MediaShape {
public:
    explicit MediaShape(std::string name);
    virtual ~MediaShape() = default;
    MediaShape(const MediaShape&) = delete;
    MediaShape& operator=(const MediaShape&) = delete;

    const node::ReferNodePtr node; ///< added to the scene
    const std::string name;        ///< shown to the user; lookups use it

    /// Gives all parts of `node` this material.
    virtual void applyMaterial(const scene::SCNMaterialPtr& material);
};

using MediaShapePtr = std::shared_ptr<MediaShape>;

/// An empty shape.
class NoShape final : public MediaShape {
public:
    NoShape();
};

/// An extruded outline with a rounded chamfer. It is scaled as a whole, with depth and chamfer.
class OutlineShape final : public MediaShape {
public:
    explicit OutlineShape(const ShapeOutline& outline);

    const float minMax; ///< scene units; the outline's longer side
    const scene::SCNNodePtr subNode;
};

/// A node of a resource scene. A missing scene or node ends the process.
class SceneShape final : public MediaShape {
public:
    explicit SceneShape(const SceneFigure& figure);
};

class BoxShape final : public MediaShape {
public:
    BoxShape();
};

class SphereShape final : public MediaShape {
public:
    SphereShape();
};

/// All shapes in the user's order, "None" first; one list for the process.
[[nodiscard]] const std::vector<MediaShapePtr>& mediaShapes();

} // namespace zelvo::content
