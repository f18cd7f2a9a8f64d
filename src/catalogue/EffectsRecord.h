// SPDX-License-Identifier: MIT
#pragma once

#include "catalogue/Catalogue.h"
#include "stage/Nodes.h"

#include <functional>
#include <memory>
#include <string_view>

// Shared by effects that are added to the scene, not to nodes.

namespace zelvo::catalogue {

using NodePtr = node::DefaultSCNNodePtr;

/// Records an effect; its title is used without names of nodes.
void recordEffect(const PressContext& context, std::string_view title, std::function<void()> body);

enum class EffectLight { burst, beacon, streak };

/// Makes the light of an effect seen on the letters. The intensities of effects are small for the
/// size of a stage; this is the one place that makes up for it.
void strengthen(scene::SCNLight& light, EffectLight kind);

/// Adds all systems to the node, in this order.
void addParticles(scene::SCNNode& node, const stage::ParticleList& list);

/// Removes the node and its particles from the stage after 0.1 s, in one transaction, on the main
/// queue.
void removeSoon(actions::ActionController& controller, const NodePtr& node);

} // namespace zelvo::catalogue
