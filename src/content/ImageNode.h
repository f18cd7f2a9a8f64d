// SPDX-License-Identifier: MIT
#pragma once

#include "content/ImageMask.h"
#include "node/Node.h"

namespace zelvo::content {

struct ImageStylePreset;

/// A picture on a plane, cut by a mask and mirrored at will. Its look comes from its own material
/// alone: the choice of a material pair changes nothing.
class ImageNode final : public core::Node {
public:
    [[nodiscard]] static std::shared_ptr<ImageNode>
    make(const glm::vec3& home, float size, const core::Surroundings& surroundings);
    ImageNode(Key key, const glm::vec3& home, float size, const core::Surroundings& surroundings);

    static constexpr double kMaxDim = 355; ///< the plane's larger side, scene units

    const scene::SCNMaterialPtr material;
    const core::ReferNodePtr imageNode; ///< bears the plane; what a touch hits
    const std::shared_ptr<scene::SCNPlane> plane;
    bool hFlipped = false; ///< mirrored left to right; shows with the next updateContent
    bool vFlipped = false; ///< mirrored top to bottom; likewise

    [[nodiscard]] const ImageMaskPtr& currentMask() const { return currentMask_; }

    [[nodiscard]] const image::ImagePtr& image() const { return image_; }

    void setCurrentMask(ImageMaskPtr mask);
    void setImage(image::ImagePtr picture); ///< null shows an empty plane
    void applyStyle(const ImageStylePreset& preset);

    void updateContent() override;
    void resetLayout() override; ///< takes the mirrorings back, too

private:
    ImageMaskPtr currentMask_;
    image::ImagePtr image_;
};

using ImageNodePtr = std::shared_ptr<ImageNode>;

} // namespace zelvo::content
