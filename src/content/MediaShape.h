// SPDX-License-Identifier: MIT
#pragma once

#include "core/node/DefaultSCNNode.h"

#include <memory>
#include <string>
#include <vector>

namespace zelvo::content {

/// A solid figure for the media node. Shapes are made once for the process.
class MediaShape {
public:
    explicit MediaShape(std::string name);
    virtual ~MediaShape() = default;
    MediaShape(const MediaShape&) = delete;
    MediaShape& operator=(const MediaShape&) = delete;

    const core::ReferNodePtr node; ///< what is put into the scene
    const std::string name;        ///< for the user, and the key of a lookup

    /// Gives everything in `node` this one material.
    virtual void applyMaterial(const scene::SCNMaterialPtr& material);
};

using MediaShapePtr = std::shared_ptr<MediaShape>;

/// Nothing to be seen.
class NoShape final : public MediaShape {
public:
    NoShape();
};

/// All shapes in the order of the user's strip, "None" first; one list for the process.
[[nodiscard]] const std::vector<MediaShapePtr>& mediaShapes();

} // namespace zelvo::content
