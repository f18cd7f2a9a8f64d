// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/SCNRenderer.h"
#include "platform/scene/SCNNode.h"

#include <QImage>

namespace zelvo::thumbnails {

/// Photographs a figure on a transparent ground, in soft daylight with a lamp at the upper left.
class Studio {
public:
    explicit Studio(render::SCNRenderer& drawing);

    /// A square picture that the figure fills.
    [[nodiscard]] QImage photograph(const scene::SCNNodePtr& figure, int side);

private:
    render::SCNRenderer& renderer;
    scene::SCNScenePtr scene;
    scene::SCNNodePtr camera;
    scene::SCNNodePtr table; ///< holds the figure
};

} // namespace zelvo::thumbnails
