// SPDX-License-Identifier: MIT
#include "platform/render/Shutter.h"

#include <glm/geometric.hpp>
#include <glm/matrix.hpp>
#include <glm/vector_relational.hpp>

namespace zelvo::render {
namespace {

/// Scene units: nothing on a stage flies that far in a frame, so it has jumped.
constexpr float kJump = 900;

} // namespace

void Shutter::open(const scene::SCNScene& scene) {
    poses.clear();
    time = scene.time();
    record(*scene.rootNode());
}

void Shutter::close() {
    poses.clear();
}

void Shutter::record(const scene::SCNNode& node) {
    poses[&node] = {
        node.weak_from_this(),
        node.presentedPosition(),
        node.presentedOrientation(),
        node.scale.presented(),
        node.opacity.presented()};
    for (const scene::SCNNodePtr& child : node.childNodes()) {
        record(*child);
    }
}

const Shutter::Pose* Shutter::poseBefore(const scene::SCNNode& node) const {
    const auto found = poses.find(&node);
    if (found == poses.end())
        return nullptr;
    const Pose& pose = found->second;
    const bool isTurnedInsideOut =
        glm::any(glm::lessThan(pose.scale * node.scale.presented(), glm::vec3(0)));
    const bool hasJumped = glm::distance(pose.position, node.presentedPosition()) > kJump;
    return isTurnedInsideOut || hasJumped ? nullptr : &pose;
}

glm::mat4 Shutter::transform(const scene::SCNNode& node, float share) const {
    const Pose* const before = poseBefore(node);
    if (before == nullptr)
        return node.transform();
    glm::mat4 matrix =
        glm::mat4_cast(glm::slerp(before->orientation, node.presentedOrientation(), share));
    const glm::vec3 factors = glm::mix(before->scale, node.scale.presented(), share);
    for (int axis = 0; axis < 3; ++axis) {
        matrix[axis] *= factors[axis];
    }
    matrix[3] = glm::vec4(glm::mix(before->position, node.presentedPosition(), share), 1);
    return node.pivot == glm::mat4(1) ? matrix : matrix * glm::inverse(node.pivot);
}

glm::mat4 Shutter::worldTransform(const scene::SCNNode& node, float share) const {
    glm::mat4 matrix = transform(node, share);
    for (const scene::SCNNode* above = node.parent(); above != nullptr; above = above->parent()) {
        matrix = transform(*above, share) * matrix;
    }
    return matrix;
}

float Shutter::opacity(const scene::SCNNode& node, float share) const {
    const Pose* const before = poseBefore(node);
    const float now = node.opacity.presented();
    return before != nullptr ? glm::mix(before->opacity, now, share) : now;
}

} // namespace zelvo::render
