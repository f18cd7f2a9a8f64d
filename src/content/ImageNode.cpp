// SPDX-License-Identifier: MIT
#include "content/ImageNode.h"

#include "content/ImageVideo.h"
#include "content/StylePresets.h"

#include <glm/gtc/matrix_transform.hpp>

#include <algorithm>

namespace zelvo::content {
namespace {

constexpr image::Color kBlack = image::Color::white(0);

scene::SCNMaterialPtr makePictureMaterial() {
    auto material = std::make_shared<scene::SCNMaterial>();
    material->lightingModelName = scene::SCNLightingModel::physicallyBased;
    material->roughness.contents = 0.4f;
    material->normal.contents = kBlack;
    material->reflective.contents = kBlack;
    material->metalness.contents = kBlack;
    material->transparencyMode = scene::SCNTransparencyMode::rgbZero;
    // Mirroring uses a negative scale; repeating brings the picture back onto the plane.
    material->diffuse.wrapS = scene::SCNWrapMode::repeat;
    material->diffuse.wrapT = scene::SCNWrapMode::repeat;
    material->isDoubleSided = true;
    return material;
}

} // namespace

ImageNodePtr
ImageNode::make(const glm::vec3& home, float size, const node::Surroundings& surroundings) {
    auto node = std::make_shared<ImageNode>(Key{}, home, size, surroundings);
    node->link();
    node->contentNode->addChildNode(node->imageNode);
    node->imageNode->wrapperNode = node;
    node->updateContent();
    return node;
}

ImageNode::ImageNode(
    Key key, const glm::vec3& home, float size, const node::Surroundings& surroundings)
    : Node(key, home, size, surroundings)
    , material(makePictureMaterial())
    , imageNode(std::make_shared<ImagePlane>())
    , plane(std::make_shared<scene::SCNPlane>(kMaxDim, kMaxDim))
    , currentMask_(imageMasks().front()) {
    name = "ImageNode";
    shortName = "IMG";
    plane->materials = {material};
    imageNode->geometry = plane;
    imageNode->categoryBitMask = node::kContentMask;
}

void ImageNode::setCurrentMask(ImageMaskPtr mask) {
    currentMask_ = std::move(mask);
    updateContent();
}

void ImageNode::setImage(image::ImagePtr picture) {
    endVideo(*this);
    file.clear();
    image_ = std::move(picture);
    updateContent();
}

void ImageNode::applyStyle(const ImageStylePreset& preset) {
    endVideo(*this);
    file.clear();
    image_ = preset.image;
    currentMask_ = preset.mask;
    isVisible = preset.isVisible;
    updateVisibility();
    updateContent();
}

void ImageNode::updateContent() {
    if (videoOf(*this) == nullptr) // a video sets its pictures itself
        material->diffuse.setImage(image_);
    if (const image::ImagePtr mask = currentMask_ ? currentMask_->image() : nullptr) {
        material->transparent.setImage(mask);
    } else {
        material->transparent.contents = kBlack;
    }
    material->diffuse.contentsTransform =
        glm::scale(glm::mat4(1), {hFlipped ? -1 : 1, vFlipped ? -1 : 1, 1});

    double width = kMaxDim;
    double height = kMaxDim;
    if (image_) {
        const double k = kMaxDim / std::max(image_->width, image_->height);
        width = image_->width * k;
        height = image_->height * k;
    }
    plane->setWidth(width);
    plane->setHeight(height);
    updateOutline();
}

void ImageNode::resetLayout() {
    hFlipped = false;
    vFlipped = false;
    updateContent();
    Node::resetLayout();
}

} // namespace zelvo::content
