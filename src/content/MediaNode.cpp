// SPDX-License-Identifier: MIT
#include "content/MediaNode.h"

#include "content/StylePresets.h"
#include "platform/scene/SCNTransaction.h"

#include <glm/gtx/component_wise.hpp>

#include <algorithm>

namespace zelvo::content {
namespace {

constexpr float kCustomNodeSide = 340; // scene units; the longest side of an imported object

} // namespace

MediaNodePtr
MediaNode::make(const glm::vec3& home, float size, const node::Surroundings& surroundings) {
    auto node = std::make_shared<MediaNode>(Key{}, home, size, surroundings);
    node->link();
    node->updateContent();
    return node;
}

MediaNode::MediaNode(
    Key key, const glm::vec3& home, float size, const node::Surroundings& surroundings)
    : Node(key, home, size, surroundings)
    , currentShape_(mediaShapes().front()) {
    name = "MediaNode";
    shortName = "OBJ";
}

MediaShapePtr MediaNode::shapeNamed(const std::string& wanted) {
    const auto& shapes = mediaShapes();
    const auto found =
        std::ranges::find(shapes, wanted, [](const MediaShapePtr& shape) { return shape->name; });
    return found == shapes.end() ? std::make_shared<NoShape>() : *found;
}

void MediaNode::setShape(MediaShapePtr shape) {
    customNode_.reset();
    if (!currentMaterialName())
        keepMaterialName(look::XMATClasses::plain);
    currentShape_ = std::move(shape);
    resetLayout();
    updateContent();
}

void MediaNode::setCustomNode(scene::SCNNodePtr node) {
    customNode_ = std::move(node);
    keepMaterialName(std::nullopt);
    resetLayout();
    updateContent();
}

void MediaNode::applyStyle(const MediaStylePreset& preset) {
    currentShape_ = preset.shape;
    const bool keepsOwnMaterials = customNode_ && !currentMaterialName();
    if (!keepsOwnMaterials) {
        setFrontColor(preset.color);
        keepMaterialName(preset.material);
    }
    updateContent();
}

void MediaNode::setFrontColor(const image::Color& color) {
    if (customNode_ && !currentMaterialName())
        setCurrentMaterialName(look::XMATClasses::plain);
    Node::setFrontColor(color);
}

void MediaNode::updateContent() {
    scene::SCNMaterialPtr material;
    if (currentMaterialName()) {
        takeUpMaterial();
        material = currentMaterial->materials.front();
        material->setContentsScale(1);
    }
    scene::SCNTransaction::begin();
    const std::vector<scene::SCNNodePtr> former = contentNode->childNodes();
    for (const scene::SCNNodePtr& child : former)
        child->removeFromParentNode();
    scene::SCNTransaction::commit();

    if (customNode_) {
        showCustomNode(material);
    } else if (currentShape_) {
        contentNode->addChildNode(currentShape_->node);
        currentShape_->node->wrapperNode = std::static_pointer_cast<Node>(shared_from_this());
        if (material)
            currentShape_->applyMaterial(material);
    }
    updateOutline();
}

void MediaNode::showCustomNode(const scene::SCNMaterialPtr& material) {
    const geometry::Box box = customNode_->boundingBox();
    const float side = glm::compMax(box.max - box.min);
    if (side > 0)
        customNode_->scale = glm::vec3(kCustomNodeSide / side);
    customNode_->position = glm::vec3(0);
    contentNode->addChildNode(customNode_);
    if (!material)
        return;
    const auto own = customNode_->categoryBitMask;
    customNode_->enumerateHierarchy([&material](scene::SCNNode& node) {
        if (node.geometry)
            node.geometry->materials = {material};
        node.categoryBitMask = node::kContentMask;
    });
    customNode_->categoryBitMask = own; // content lights affect only its descendants
}

} // namespace zelvo::content
