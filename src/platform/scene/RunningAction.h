// SPDX-License-Identifier: MIT
#pragma once

#include "platform/scene/SCNNode.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace zelvo::scene {

/// An action while it runs on a node: from SCNNode::runAction until it ends or is cancelled.
struct SCNNode::RunningAction {
    SCNActionPtr action; ///< the run refers to it
    std::unique_ptr<SCNAction::Run> run;
    std::string key;
    std::function<void()> completion;
    std::uint64_t addedIn; ///< number of evaluations when it was added; it starts in the next one
    double elapsed = 0;
    bool hasBegun = false;
    bool isCancelled = false;
    bool hasEnded = false;

    [[nodiscard]] bool isFinished() const { return isCancelled || hasEnded; }
};

} // namespace zelvo::scene
