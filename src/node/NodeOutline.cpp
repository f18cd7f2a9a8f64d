// SPDX-License-Identifier: MIT
// The editing frame of a node and its touch target.
#include "node/Node.h"

#include <glm/geometric.hpp>
#include <glm/matrix.hpp>

#include <algorithm>
#include <cmath>

namespace zelvo::node {
namespace {

constexpr float kMinSide = 100;        // scene units
constexpr float kPadding = 8;          // scene units, both sides together
constexpr double kFadeDuration = 0.16; // s
constexpr image::Color kAccent = image::Color::hex(0x245CF0);
constexpr image::Color kQuiet = image::Color::white(0.4f);

scene::SCNMaterialPtr blackMaterial() {
    auto material = std::make_shared<scene::SCNMaterial>();
    material->diffuse.contents = image::Color::white(0);
    return material;
}

float paddedSide(float low, float high) {
    return std::max(kMinSide, std::abs(low) + std::abs(high) + kPadding);
}

void setSize(scene::SCNPlane& plane, double width, double height) {
    plane.setWidth(width);
    plane.setHeight(height);
}

} // namespace

std::vector<Node::Bar> Node::bars() const {
    // clang-format off
    return {
        {topPlane.get(),    topPlaneNode.get()   },
        {rightPlane.get(),  rightPlaneNode.get() },
        {bottomPlane.get(), bottomPlaneNode.get()},
        {leftPlane.get(),   leftPlaneNode.get()  }
    };
    // clang-format on
}

void Node::linkOutline() {
    bgNode->wrapperNode = std::static_pointer_cast<Node>(shared_from_this());
    bgNode->geometry = bgPlane;
    bgNode->categoryBitMask = kTouchMask;
    const auto background = blackMaterial();
    background->emission.contents = image::Color::white(0.5f);
    bgPlane->materials = {background};
    bgNode->opacity = 0.0f;
    outlineNode->addChildNode(bgNode);

    topPlaneNode->geometry = topPlane;
    rightPlaneNode->geometry = rightPlane;
    bottomPlaneNode->geometry = bottomPlane;
    leftPlaneNode->geometry = leftPlane;
    for (const Bar& bar : bars()) {
        const auto material = blackMaterial();
        material->isDoubleSided = true;
        bar.plane->materials = {material};
        bar.node->categoryBitMask = kTouchMask;
        outlineNode->addChildNode(bar.node->shared_from_this());
    }
    outlineNode->addChildNode(marks.node());
    outlineNode->isHidden = true;
    outlineNode->showsOnFloors = false;
}

void Node::showOutline(Outline outline, Transition transition) {
    if (outline == Outline::hidden) {
        if (transition == Transition::immediate) {
            outlineNode->isHidden = true;
            return;
        }
        // Held weakly, because the action belongs to the frame and may never end.
        outlineNode->runAction(
            scene::SCNAction::fadeOut(kFadeDuration), [own = std::weak_ptr(outlineNode)] {
                if (const auto frame = own.lock())
                    frame->isHidden = true;
            });
        return;
    }
    outlineNode->removeAllActions();
    updateOutline();
    outlineNode->opacity = 1.0f;
    outlineNode->isHidden = false;
    const bool isWhole = outline != Outline::plain;
    for (const Bar& bar : bars()) {
        bar.plane->materials.front()->emission.contents =
            outline == Outline::highlighted ? kAccent : kQuiet;
        bar.node->isHidden = !isWhole;
    }
    marks.show(isWhole ? OutlineMarks::Extent::whole : OutlineMarks::Extent::corners);
    marks.showName(isWhole || hasVisibleContent());
}

void Node::updateOutline() {
    const bool wasHidden = contentNode->isHidden;
    contentNode->isHidden = false; // hidden content has a frame, too
    const geometry::Box box = contentNode->boundingBox();
    contentNode->isHidden = wasHidden;

    const float w = paddedSide(box.min.x, box.max.x);
    const float h = paddedSide(box.min.y, box.max.y);
    // The bars keep their thickness on screen when the node is scaled.
    const glm::vec3 rootScale = scale;
    const double bw = std::abs(borderMargin / static_cast<double>(rootScale.x));
    const double bh = std::abs(borderMargin / static_cast<double>(rootScale.y));
    setSize(*bgPlane, w, h);
    for (scene::SCNPlane* plane : {topPlane.get(), bottomPlane.get()})
        setSize(*plane, w + bw, bh);
    for (scene::SCNPlane* plane : {rightPlane.get(), leftPlane.get()})
        setSize(*plane, bw, h + bh);

    topPlaneNode->position = glm::vec3(0, h / 2, 0);
    rightPlaneNode->position = glm::vec3(w / 2, 0, 0);
    bottomPlaneNode->position = glm::vec3(0, -h / 2, 0);
    leftPlaneNode->position = glm::vec3(-w / 2, 0, 0);
    marks.fit({w, h}, {bw, bh}, 1 / positionNode->scale.value().x);
    outlineNode->position = contentNode->position.value() + glm::vec3(0, 0, 1);
}

bool Node::hasVisibleContent() const {
    const geometry::Box box = contentNode->boundingBox();
    return !contentNode->isHidden && box.min != box.max;
}

std::optional<float> Node::frameDistance(const geometry::Ray& ray) const {
    const glm::mat4 fromWorld = glm::inverse(outlineNode->worldTransform());
    const glm::vec3 origin(fromWorld * glm::vec4(ray.origin, 1));
    const glm::vec3 direction(fromWorld * glm::vec4(ray.direction, 0));
    if (direction.z == 0)
        return std::nullopt;
    const float distance = -origin.z / direction.z;
    const glm::vec2 met(origin + distance * direction);
    const glm::vec2 half(bgPlane->width() / 2, bgPlane->height() / 2);
    const bool isMet = distance > 0 && std::abs(met.x) <= half.x && std::abs(met.y) <= half.y;
    return isMet ? std::optional(distance) : std::nullopt;
}

float Node::frameArea() const {
    const glm::mat4 toWorld = outlineNode->worldTransform();
    const glm::vec3 across = glm::vec3(toWorld[0]) * static_cast<float>(bgPlane->width());
    const glm::vec3 up = glm::vec3(toWorld[1]) * static_cast<float>(bgPlane->height());
    return glm::length(glm::cross(across, up));
}

} // namespace zelvo::node
