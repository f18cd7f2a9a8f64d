// SPDX-License-Identifier: MIT
#pragma once

#include "platform/scene/SCNParticleSystem.h"

#include <glm/mat4x4.hpp>

#include <span>
#include <vector>

namespace zelvo::scene {

/// The current state of a particle, in world space.
struct Particle {
    glm::vec3 position;
    glm::vec3 velocity;
    float size;
    float angle; ///< radians
    glm::vec4 color;
};

/// A particle system that runs on a node. Emitters of one system differ by a number that counts
/// from 0 and starts again when none of them is left: so a replay on an empty stage shows the same
/// particles. A different seed of the process (seedRandom) gives different ones.
class ParticleEmitter {
public:
    explicit ParticleEmitter(SCNParticleSystemPtr given);

    [[nodiscard]] const SCNParticleSystemPtr& system() const { return system_; }

    /// Advances by a step of scene time; the first call only starts it. `world` is the node's
    /// transform.
    void advance(double step, const glm::mat4& world);

    /// In order of birth.
    [[nodiscard]] std::span<const Particle> live() const { return live_; }

    /// True if it emits no more and all particles are gone.
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
    std::shared_ptr<int> place; ///< its share in the count of the system's emitters
    std::uint32_t seed;
    double age = 0; ///< seconds of the system's time
    bool hasBegun = false;
    std::vector<Place> places; ///< where the node was, for as long as live particles need it
    std::vector<Particle> live_;
};

} // namespace zelvo::scene
