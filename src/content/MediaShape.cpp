// SPDX-License-Identifier: MIT
#include "content/MediaShape.h"

namespace zelvo::content {

MediaShape::MediaShape(std::string shapeName)
    : node(std::make_shared<core::ReferNode>())
    , name(std::move(shapeName)) {}

void MediaShape::applyMaterial(const scene::SCNMaterialPtr& material) {
    material->setContentsScale(1);
    if (node->geometry)
        node->geometry->materials = {material};
    for (const scene::SCNNodePtr& child : node->childNodes()) {
        child->enumerateHierarchy([&material](scene::SCNNode& below) {
            if (below.geometry)
                below.geometry->materials = {material};
            below.categoryBitMask = core::kContentMask;
        });
    }
}

NoShape::NoShape()
    : MediaShape("None") {}

const std::vector<MediaShapePtr>& mediaShapes() {
    static const std::vector<MediaShapePtr> shapes = {std::make_shared<NoShape>()};
    return shapes;
}

} // namespace zelvo::content
