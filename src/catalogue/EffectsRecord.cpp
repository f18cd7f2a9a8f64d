// SPDX-License-Identifier: MIT
#include "catalogue/EffectsRecord.h"

#include "actions/ActionController.h"
#include "platform/scene/SCNTransaction.h"

#include <array>
#include <string>
#include <utility>

namespace zelvo::catalogue {

namespace {

constexpr double kRemovalDelay = 0.1;
/// In the order of EffectLight.
constexpr auto kLightGains = std::to_array<double>({60, 60, 4});
constexpr float kLightLift = 120; ///< scene units, out of the letters

} // namespace

void recordEffect(const PressContext& context, std::string_view title, std::function<void()> body) {
    context.controller.addAction(
        std::move(body),
        context.controller.newIdentifier(),
        std::string(title),
        actions::RegisterUndo::yes);
}

void strengthen(scene::SCNLight& light, EffectLight kind) {
    light.gain = kLightGains.at(static_cast<std::size_t>(kind));
    light.lift = kLightLift;
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
