// SPDX-License-Identifier: MIT
#include "catalogue/EffectsRecord.h"

#include "actions/ActionController.h"
#include "platform/scene/SCNTransaction.h"

#include <string>
#include <utility>

namespace zelvo::catalogue {

namespace {

constexpr double kRemovalDelay = 0.1;

} // namespace

void recordEffect(const PressContext& context, std::string_view title, std::function<void()> body) {
    context.controller.addAction(
        std::move(body),
        context.controller.newIdentifier(),
        std::string(title),
        actions::RegisterUndo::yes);
}

void addParticles(scene::SCNNode& node, const stage::ParticleList& list) {
    for (const scene::SCNParticleSystemPtr& system : list) {
        node.addParticleSystem(system);
    }
}

void removeSoon(actions::ActionController& controller, const NodePtr& node) {
    controller.model().runLoop().asyncAfter(kRemovalDelay, [node] {
        scene::SCNTransaction::begin();
        node->removeAllParticleSystems();
        node->removeFromParentNode();
        scene::SCNTransaction::commit();
    });
}

} // namespace zelvo::catalogue
