// SPDX-License-Identifier: MIT
#include "stage/ParticleNodes.h"

#include "platform/foundation/Check.h"
#include "platform/scene/SCNScene.h"

#include <filesystem>

namespace zelvo::stage {

ParticleList ParticleNodes::load(const std::string& file) {
    if (std::filesystem::path(file).extension() == ".scnp")
        return {scene::SCNParticleSystem::named(file)};
    ParticleList systems;
    scene::SCNScene::sceneNamed(file)->rootNode()->enumerateHierarchy([&](scene::SCNNode& node) {
        for (scene::SCNParticleSystemPtr& system : node.particleSystems()) {
            systems.push_back(std::move(system));
        }
    });
    CHECK(!systems.empty(), "{} holds no particles", file);
    return systems;
}

scene::SCNParticleSystemPtr ParticleNodes::sparkles() {
    auto system = scene::SCNParticleSystem::named("Sparkles.scnp");
    system->blackPassEnabled = false;
    system->lightingEnabled = false;
    system->affectedByPhysicsFields = false;
    system->affectedByGravity = false;
    system->acceleration = {0, 0, 0};
    system->particleSize = 20;
    system->particleSizeVariation = 75;
    system->particleMass = 0.00001f;
    system->particleLifeSpan = 0.6f;
    system->speedFactor = 2;
    system->birthRate = 20;
    system->birthRateVariation = 0;
    system->warmupDuration = 0;
    system->particleAngleVariation = 360;
    system->particleVelocityVariation = 10;
    system->spreadingAngle = 360;
    return system;
}

} // namespace zelvo::stage
