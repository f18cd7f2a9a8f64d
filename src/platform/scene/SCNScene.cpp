// SPDX-License-Identifier: MIT
#include "platform/scene/SCNScene.h"

#include "platform/foundation/Check.h"
#include "platform/scene/SCNSceneRenderer.h"

#include <algorithm>

namespace zelvo::scene {

SCNScene::SCNScene()
    : rootNode_(std::make_shared<SCNNode>()) {}

void SCNScene::applyAnimations(double time) {
    CHECK(!isApplying, "a scene is animated from within its own animation");
    isApplying = true;
    const double step = hasTime ? std::max(0.0, time - time_) : 0;
    time_ = time;
    hasTime = true;
    SCNTransaction::advance(step);

    const std::uint64_t evaluation = ++SCNNode::evaluationsBegun;
    collectActive(rootNode_);
    for (const SCNNodePtr& node : active) {
        node->advanceActions(step, evaluation, completions);
    }
    for (const SCNNodePtr& node : active) {
        node->advanceAnimations(step, evaluation);
        node->advanceParticles(step);
    }
    active.clear();
    isApplying = false;

    // A completion may call this function again, so the list is moved out first.
    std::vector<std::function<void()>> ended = std::move(completions);
    completions.clear();
    for (const std::function<void()>& completion : ended) {
        completion();
    }
    ended.clear();
    if (completions.empty())
        completions = std::move(ended);
}

void SCNScene::collectActive(const SCNNodePtr& node) {
    if (!node->running.empty() || !node->animations.empty() || !node->emitters_.empty())
        active.push_back(node);
    for (const SCNNodePtr& child : node->childNodes()) {
        collectActive(child);
    }
}

void SCNSceneRenderer::update(double time) {
    if (delegate != nullptr)
        delegate->rendererUpdateAtTime(*this, time);
    const SCNScenePtr current = scene_; // because the delegate may attach another scene
    if (current)
        current->applyAnimations(time);
    if (delegate != nullptr)
        delegate->rendererDidApplyAnimationsAtTime(*this, time);
}

} // namespace zelvo::scene
