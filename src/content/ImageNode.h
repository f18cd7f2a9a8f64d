// SPDX-License-Identifier: MIT
#pragma once

#include "content/ImageMask.h"
#include "node/Node.h"

#include <filesystem>

namespace zelvo::content {

struct ImageStylePreset;

/// A picture on a plane, cut by a mask and optionally mirrored. It has its own material; material
/// pairs have no effect.
class ImageNode final : public node::Node {
public:
    [[nodiscard]] static std::shared_ptr<ImageNode>
    make(const glm::vec3& home, float size, const node::Surroundings& surroundings);
    ImageNode(Key key, const glm::vec3& home, float size, const node::Surroundings& surroundings);

    static constexpr double kMaxDim = 355; ///< the plane's longer side, scene units

    const scene::SCNMaterialPtr material;
    const node::ReferNodePtr imageNode; ///< has the plane; found by hit tests
    const std::shared_ptr<scene::SCNPlane> plane;
    bool hFlipped = false; ///< mirrored left to right; takes effect with the next updateContent
    bool vFlipped = false; ///< mirrored top to bottom; takes effect with the next updateContent

    [[nodiscard]] const ImageMaskPtr& currentMask() const { return currentMask_; }

    [[nodiscard]] const image::ImagePtr& image() const { return image_; }

    void setCurrentMask(ImageMaskPtr mask);
    void setImage(image::ImagePtr picture); ///< null: an empty plane

    /// Where the picture or the video comes from; empty: it is the program's own. A new picture resets
    /// it.
    std::filesystem::path file;

    void applyStyle(const ImageStylePreset& preset);

    void updateContent() override;
    void resetLayout() override; ///< also resets the mirroring

private:
    ImageMaskPtr currentMask_;
    image::ImagePtr image_;
};

using ImageNodePtr = std::shared_ptr<ImageNode>;

} // namespace zelvo::content
