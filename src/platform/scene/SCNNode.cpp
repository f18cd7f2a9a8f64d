// SPDX-License-Identifier: MIT
#include "platform/scene/SCNNode.h"

#include "platform/foundation/Check.h"
#include "platform/scene/KeyframeRun.h"
#include "platform/scene/RunningAction.h"

#include <glm/geometric.hpp>
#include <glm/gtc/matrix_transform.hpp>

#include <algorithm>
#include <cmath>
#include <utility>

namespace zelvo::scene {

namespace {

geometry::Box transformed(const geometry::Box& box, const glm::mat4& matrix) {
    geometry::Box result;
    for (unsigned corner = 0; corner < 8; ++corner) {
        const glm::vec4 point{
            (corner & 1U) != 0 ? box.max.x : box.min.x,
            (corner & 2U) != 0 ? box.max.y : box.min.y,
            (corner & 4U) != 0 ? box.max.z : box.min.z,
            1};
        result.include(glm::vec3(matrix * point));
    }
    return result;
}

bool isAtOrBelow(const SCNNode& node, const SCNNode& ancestor) {
    for (const SCNNode* above = &node; above != nullptr; above = above->parent()) {
        if (above == &ancestor)
            return true;
    }
    return false;
}

/// As SCNNode::boundingBox, but an empty box if there is no geometry.
geometry::Box contentsBox(const SCNNode& node) {
    geometry::Box box;
    if (node.geometry)
        box = node.geometry->boundingBox();
    for (const SCNNodePtr& child : node.childNodes()) {
        if (child->isHidden)
            continue;
        const geometry::Box inner = contentsBox(*child);
        if (!inner.isEmpty())
            box.include(transformed(inner, child->transform()));
    }
    return box;
}

} // namespace

glm::quat orientationFromEulerAngles(const glm::vec3& radians) {
    const glm::quat pitch = glm::angleAxis(radians.x, glm::vec3(1, 0, 0));
    const glm::quat yaw = glm::angleAxis(radians.y, glm::vec3(0, 1, 0));
    const glm::quat roll = glm::angleAxis(radians.z, glm::vec3(0, 0, 1));
    return pitch * yaw * roll;
}

glm::vec3 eulerAnglesFromOrientation(const glm::quat& orientation) {
    // In Rx * Ry * Rz, the last element of the first row is sin(yaw). The elements beside it give
    // the other angles.
    const glm::mat3 m = glm::mat3_cast(orientation);
    const float sinYaw = std::clamp(m[2][0], -1.0f, 1.0f);
    // Near this, pitch and roll turn around the same axis; pitch gets all of it.
    constexpr float kGimbalLock = 0.999999f;
    if (std::abs(sinYaw) > kGimbalLock)
        return {std::atan2(m[1][2], m[1][1]), std::asin(sinYaw), 0};
    return {std::atan2(-m[2][1], m[2][2]), std::asin(sinYaw), std::atan2(-m[1][0], m[0][0])};
}

SCNNode::SCNNode() = default;

SCNNode::~SCNNode() {
    for (const SCNNodePtr& child : children) {
        child->parent_ = nullptr;
    }
}

void SCNNode::setEulerAngles(const glm::vec3& radians) {
    eulerAngles_ = radians;
    orientation_ = orientationFromEulerAngles(radians);
}

void SCNNode::setOrientation(const glm::quat& orientation) {
    orientation_ = glm::normalize(orientation);
    eulerAngles_ = eulerAnglesFromOrientation(orientation_);
}

void SCNNode::setRotation(const glm::vec4& axisAngle) {
    const glm::vec3 axis(axisAngle);
    const float length = glm::length(axis);
    if (length == 0) {
        setEulerAngles(glm::vec3(0));
        return;
    }
    setOrientation(glm::angleAxis(axisAngle.w, axis / length));
}

glm::vec4 SCNNode::rotation() const {
    return axisAngleFromOrientation(orientation_);
}

glm::mat4 SCNNode::transform() const {
    glm::mat4 matrix = glm::mat4_cast(presentedOrientation());
    const glm::vec3& factors = scale.presented();
    matrix[0] *= factors.x;
    matrix[1] *= factors.y;
    matrix[2] *= factors.z;
    matrix[3] = glm::vec4(presentedPosition(), 1);
    return pivot == glm::mat4(1) ? matrix : matrix * glm::inverse(pivot);
}

glm::mat4 SCNNode::worldTransform() const {
    glm::mat4 matrix = transform();
    for (const SCNNode* node = parent_; node != nullptr; node = node->parent_) {
        matrix = node->transform() * matrix;
    }
    return matrix;
}

void SCNNode::addChildNode(SCNNodePtr child) {
    CHECK(child != nullptr, "node \"{}\" gets a null child", name);
    CHECK(!isAtOrBelow(*this, *child), "node \"{}\" would stand below itself", child->name);
    child->removeFromParentNode();
    child->parent_ = this;
    children.push_back(std::move(child));
}

void SCNNode::removeFromParentNode() {
    if (parent_ == nullptr)
        return;
    const SCNNodePtr self = weak_from_this().lock(); // the parent may hold the last reference
    SCNNode& former = *std::exchange(parent_, nullptr);
    std::erase_if(former.children, [this](const SCNNodePtr& child) { return child.get() == this; });
}

SCNNodePtr SCNNode::childNodeWithName(const std::string& wanted, Search search) const {
    for (const SCNNodePtr& child : children) {
        if (child->name == wanted)
            return child;
        if (search == Search::childrenOnly)
            continue;
        if (SCNNodePtr found = child->childNodeWithName(wanted, search))
            return found;
    }
    return nullptr;
}

void SCNNode::enumerateHierarchy(const std::function<void(SCNNode&)>& visit) {
    visit(*this);
    const std::vector<SCNNodePtr> snapshot = children; // because the visitor may change the tree
    for (const SCNNodePtr& child : snapshot) {
        child->enumerateHierarchy(visit);
    }
}

geometry::Box SCNNode::boundingBox() const {
    const geometry::Box box = contentsBox(*this);
    return box.isEmpty() ? geometry::Box{glm::vec3(0), glm::vec3(0)} : box;
}

} // namespace zelvo::scene
