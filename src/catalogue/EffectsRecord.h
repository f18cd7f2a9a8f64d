// SPDX-License-Identifier: MIT
#pragma once

#include "catalogue/Catalogue.h"
#include "stage/Nodes.h"

#include <functional>
#include <memory>
#include <string_view>

// What the effects that stand in the scene, not on nodes, have in common.

namespace zelvo::catalogue {

using NodePtr = core::DefaultSCNNodePtr;

/// Records an effect under its plain title.
void recordEffect(const PressContext& context, std::string_view title, std::function<void()> body);

/// Hangs each system of the list on the node, in its order.
void addParticles(scene::SCNNode& node, const core::ParticleList& list);

/// Takes the node, with its particles, off the stage in one transaction, 0.1 s later on the main
/// queue.
void removeSoon(actions::ActionController& controller, const NodePtr& node);

} // namespace zelvo::catalogue
