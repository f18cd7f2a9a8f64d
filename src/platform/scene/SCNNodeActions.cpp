// SPDX-License-Identifier: MIT
#include "platform/foundation/Check.h"
#include "platform/scene/RunningAction.h"
#include "platform/scene/SCNNode.h"

#include <algorithm>
#include <utility>

namespace zelvo::scene {

std::uint64_t SCNNode::evaluationsBegun = 0;

void SCNNode::runAction(const SCNActionPtr& action, std::function<void()> completion) {
    runAction(action, {}, std::move(completion));
}

void SCNNode::runAction(
    const SCNActionPtr& action, const std::string& key, std::function<void()> completion) {
    CHECK(action != nullptr, "node \"{}\" is to run a null action", name);
    if (!key.empty())
        cancelActions(key);
    running.push_back(std::make_unique<RunningAction>(
        RunningAction{action, action->start(), key, std::move(completion), evaluationsBegun}));
}

void SCNNode::removeAllActions() {
    cancelActions({});
}

void SCNNode::removeActionForKey(const std::string& key) {
    if (!key.empty())
        cancelActions(key);
}

bool SCNNode::hasActions() const {
    return std::any_of(
        running.begin(), running.end(), [](const auto& entry) { return !entry->isFinished(); });
}

void SCNNode::addToPosition(const glm::vec3& delta) {
    addedPosition_ += delta;
    position = position.presented() + delta;
}

void SCNNode::addToEulerAngles(const glm::vec3& delta) {
    addedEulerAngles_ += delta;
    setEulerAngles(eulerAngles_ + delta);
}

void SCNNode::cancelActions(const std::string& key) {
    for (const auto& entry : running) {
        if (key.empty() || entry->key == key)
            entry->isCancelled = true;
    }
    if (!isAdvancing)
        dropFinishedActions();
}

void SCNNode::dropFinishedActions() {
    std::erase_if(running, [](const auto& entry) { return entry->isFinished(); });
}

void SCNNode::advanceActions(
    double step, std::uint64_t evaluation, std::vector<std::function<void()>>& completions) {
    isAdvancing = true;
    // Blocks may add actions during this loop, but never remove one.
    // NOLINTNEXTLINE(modernize-loop-convert): an iterator would not outlive the growth
    for (std::size_t i = 0; i < running.size(); ++i) {
        RunningAction& entry = *running[i];
        if (entry.isCancelled || entry.addedIn >= evaluation)
            continue;
        entry.elapsed += std::exchange(entry.hasBegun, true) ? step : 0;
        const double duration = entry.action->duration();
        const bool reachesEnd = entry.elapsed >= duration - kTimeTolerance;
        entry.run->apply({*this, entry.isCancelled}, reachesEnd ? duration : entry.elapsed);
        if (!reachesEnd || entry.isCancelled)
            continue;
        entry.hasEnded = true;
        if (entry.completion)
            completions.push_back(std::move(entry.completion));
    }
    isAdvancing = false;
    dropFinishedActions();
}

} // namespace zelvo::scene
