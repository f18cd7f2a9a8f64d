// SPDX-License-Identifier: MIT
#pragma once

#include "platform/scene/SCNParticleSystem.h"

#include <glm/mat4x4.hpp>

#include <span>
#include <vector>

namespace zelvo::scene {

/// A particle as it stands now, in the world.
struct Particle {
    glm::vec3 position;
    glm::vec3 velocity;
    float size;
    float angle; ///< radians
    glm::vec4 color;
};

/// A particle system at work on a node. Emitters of one system are told apart by how many of it
/// were added since none of it was at work: so a run that starts on an empty stage shows the same
/// particles each time. Another seed of the process's random source (seedRandom) gives others.
class ParticleEmitter {
public:
    explicit ParticleEmitter(SCNParticleSystemPtr given);

    [[nodiscard]] const SCNParticleSystemPtr& system() const { return system_; }

    /// Goes on by a step of scene time, the first call by nothing; `world` is the node's place.
    void advance(double step, const glm::mat4& world);

    /// In the order of birth.
    [[nodiscard]] std::span<const Particle> live() const { return live_; }

    /// Whether all that will ever be born has died.
    [[nodiscard]] bool isOver() const;

private:
    struct Place {
        double age;
        glm::mat4 world;
    };

    void keepPlace(const glm::mat4& world);
    [[nodiscard]] glm::mat4 placeAt(double bornAt) const;
    void evaluate();
    void evaluateCycle(std::uint32_t cycle);
    void addParticle(std::uint32_t number, double bornAt);

    SCNParticleSystemPtr system_;
    std::shared_ptr<int> place; ///< held while at work
    std::uint32_t seed;
    double age = 0; ///< seconds of the system's own time
    bool hasBegun = false;
    std::vector<Place> places; ///< where the node was, as long as live particles remember it
    std::vector<Particle> live_;
};

} // namespace zelvo::scene
