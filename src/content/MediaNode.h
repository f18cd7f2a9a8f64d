// SPDX-License-Identifier: MIT
#pragma once

#include "content/MediaShape.h"
#include "node/Node.h"

namespace zelvo::content {

struct MediaStylePreset;

/// Shows a shape, or an object that the user has imported.
class MediaNode final : public node::Node {
public:
    [[nodiscard]] static std::shared_ptr<MediaNode>
    make(const glm::vec3& home, float size, const node::Surroundings& surroundings);
    MediaNode(Key key, const glm::vec3& home, float size, const node::Surroundings& surroundings);

    /// The first shape with this name; a new "None" if there is none.
    [[nodiscard]] static MediaShapePtr shapeNamed(const std::string& wanted);

    [[nodiscard]] const MediaShapePtr& currentShape() const { return currentShape_; }

    [[nodiscard]] const scene::SCNNodePtr& customNode() const { return customNode_; }

    void setShape(MediaShapePtr shape); ///< removes the imported object, resets the layout
    void
    setCustomNode(scene::SCNNodePtr node); ///< keeps the object's own materials, resets the layout
    void applyStyle(const MediaStylePreset& preset);

    /// Gives an imported object the plain material in this colour.
    void setFrontColor(const image::Color& color) override;
    void updateContent() override;

private:
    void showCustomNode(const scene::SCNMaterialPtr& material);

    MediaShapePtr currentShape_;
    scene::SCNNodePtr customNode_;
};

using MediaNodePtr = std::shared_ptr<MediaNode>;

} // namespace zelvo::content
