// SPDX-License-Identifier: MIT
#include "platform/scene/SCNNode.h"

#include <algorithm>
#include <utility>

namespace zelvo::scene {

void SCNNode::addParticleSystem(SCNParticleSystemPtr system) {
    emitters_.push_back(std::make_unique<ParticleEmitter>(std::move(system)));
}

void SCNNode::removeParticleSystem(const SCNParticleSystemPtr& system) {
    std::erase_if(
        emitters_, [&system](const auto& emitter) { return emitter->system() == system; });
}

void SCNNode::removeAllParticleSystems() {
    emitters_.clear();
}

std::vector<SCNParticleSystemPtr> SCNNode::particleSystems() const {
    std::vector<SCNParticleSystemPtr> systems;
    systems.reserve(emitters_.size());
    for (const auto& emitter : emitters_) {
        systems.push_back(emitter->system());
    }
    return systems;
}

void SCNNode::advanceParticles(double step) {
    if (emitters_.empty())
        return;
    const glm::mat4 world = worldTransform();
    for (const auto& emitter : emitters_) {
        emitter->advance(step, world);
    }
}

} // namespace zelvo::scene
