// SPDX-License-Identifier: MIT
#pragma once

#include "node/DefaultSCNNode.h"

#include <memory>
#include <string>
#include <vector>

namespace zelvo::content {

struct ShapeOutline;
struct SceneFigure;

/// A solid figure for the media node. Shapes are made once for the process; their solids are built
/// when they are first drawn or measured.
class MediaShape {
public:
    explicit MediaShape(std::string name);
    virtual ~MediaShape() = default;
    MediaShape(const MediaShape&) = delete;
    MediaShape& operator=(const MediaShape&) = delete;

    const core::ReferNodePtr node; ///< what is put into the scene
    const std::string name;        ///< for the user, and the key of a lookup

    /// Gives everything in `node` this one material, at its plain size.
    virtual void applyMaterial(const scene::SCNMaterialPtr& material);
};

using MediaShapePtr = std::shared_ptr<MediaShape>;

/// Nothing to be seen.
class NoShape final : public MediaShape {
public:
    NoShape();
};

/// An outline as a solid with a rounded chamfer, scaled as a whole: depth and chamfer grow with it.
class OutlineShape final : public MediaShape {
public:
    explicit OutlineShape(const ShapeOutline& outline);

    const float minMax; ///< scene units, the outline's larger side
    const scene::SCNNodePtr subNode;
};

/// A figure taken from a resource scene. A scene that is missing or lacks the node ends the
/// process.
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

/// All shapes in the order of the user's strip, "None" first; one list for the process.
[[nodiscard]] const std::vector<MediaShapePtr>& mediaShapes();

} // namespace zelvo::content
