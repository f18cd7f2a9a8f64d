// SPDX-License-Identifier: MIT
#include "platform/scene/KeyframeRun.h"
#include "platform/scene/SCNNode.h"

#include <glm/common.hpp>

#include <algorithm>
#include <utility>

namespace zelvo::scene {

void SCNNode::KeyframeRun::advance(double step) {
    if (!std::exchange(hasBegun, true))
        step = 0;
    elapsed = std::min(elapsed + step, animation.length());
    blendLeft -= step;
    weight = animation.weightAt(elapsed);
    if (blendOut > 0)
        weight *= static_cast<float>(std::max(0.0, blendLeft / blendOut));
    if (animation.keyPath == CAKeyframeAnimation::KeyPath::position) {
        position = animation.vectorAt(elapsed);
    } else {
        orientation = animation.orientationAt(elapsed);
    }
}

bool SCNNode::KeyframeRun::isOver() const {
    return elapsed >= animation.length() - kTimeTolerance ||
           (blendOut > 0 && blendLeft <= kTimeTolerance);
}

void SCNNode::addAnimation(CAKeyframeAnimation animation, const std::string& key) {
    animation.check();
    removeAnimationForKey(key, animation.fadeInDuration);
    animations.push_back(std::make_unique<KeyframeRun>(
        KeyframeRun{.animation = std::move(animation), .key = key, .addedIn = evaluationsBegun}));
}

std::vector<std::string> SCNNode::animationKeys() const {
    std::vector<std::string> keys;
    for (const auto& run : animations) {
        if (!run->key.empty())
            keys.push_back(run->key);
    }
    return keys;
}

void SCNNode::removeAnimationForKey(const std::string& key, double blendOutDuration) {
    for (const auto& run : animations) {
        if (key.empty() || run->key != key)
            continue;
        run->key.clear();
        run->blendOut = run->blendLeft = blendOutDuration;
        if (blendOutDuration <= 0)
            run->elapsed = run->animation.length();
    }
    dropFinishedAnimations();
}

void SCNNode::dropFinishedAnimations() {
    std::erase_if(animations, [](const auto& run) { return run->isOver(); });
}

void SCNNode::advanceAnimations(double step, std::uint64_t evaluation) {
    for (const auto& run : animations) {
        if (run->addedIn < evaluation)
            run->advance(step);
    }
    dropFinishedAnimations();
}

glm::vec3 SCNNode::presentedPosition() const {
    glm::vec3 place = position.presented();
    for (const auto& run : animations) {
        if (run->animation.keyPath == CAKeyframeAnimation::KeyPath::position)
            place = glm::mix(place, run->position, run->weight);
    }
    return place;
}

glm::quat SCNNode::presentedOrientation() const {
    glm::quat turned = orientation_;
    for (const auto& run : animations) {
        if (run->animation.keyPath == CAKeyframeAnimation::KeyPath::rotation)
            turned = glm::slerp(turned, run->orientation, run->weight);
    }
    return turned;
}

} // namespace zelvo::scene
