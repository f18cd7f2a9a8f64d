// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/image/Image.h"

#include <glm/vec3.hpp>
#include <glm/vec4.hpp>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace zelvo::scene {

enum class ParticleShapeKind { point, sphere, box, plane, cylinder };

/// Where particles are born, around the node. Planes lie in x and y, cylinders stand along y.
struct ParticleShape {
    ParticleShapeKind kind = ParticleShapeKind::point;
    /// half sides; of round shapes x is the radius, of a cylinder y half the height
    glm::vec3 half{0};

    [[nodiscard]] static ParticleShape sphere(float radius) {
        return {ParticleShapeKind::sphere, glm::vec3(radius)};
    }
};

enum class ParticleBirthLocation { volume, surface };
enum class ParticleBirthDirection {
    constant, ///< emittingDirection
    /// from the node's middle through the place of birth; emittingDirection at the middle
    outwards,
};
enum class ParticleBlendMode { alpha, additive };

/// A value at a share of a particle's life (0 birth, 1 death); linear between, constant beyond.
template <class T> struct ParticleKey {
    float at;
    T value;
};

template <class T> using ParticleCurve = std::vector<ParticleKey<T>>;

/// How particles come, move and look. Seconds, scene units, degrees. Each `…Variation` is the
/// width of a uniform spread around its value (of a size, life or rate never below 0).
///
/// A particle's whole way follows from its number and its emitter's seed in closed form, so it
/// stands in the same place whatever the steps in which time was reached.
class SCNParticleSystem {
public:
    float birthRate = 10; ///< particles a second while emitting
    float birthRateVariation = 0;
    float warmupDuration = 0;   ///< seconds that have passed when it is added to a node
    float emissionDuration = 1; ///< seconds of one emission
    float idleDuration = 0;     ///< between two emissions
    bool loops = true;          ///< false: one emission only
    float speedFactor = 1;      ///< of all time below

    ParticleShape emitterShape;
    glm::vec3 emitterPosition{0}; ///< of the shape's middle, in the node's space
    ParticleBirthLocation birthLocation = ParticleBirthLocation::volume;
    ParticleBirthDirection birthDirection = ParticleBirthDirection::constant;
    glm::vec3 emittingDirection{0, 1, 0};
    float spreadingAngle = 0; ///< degrees, the whole cone's: 360 is all around
    bool isLocal = false;     ///< particles stay with the node after their birth

    float particleLifeSpan = 1;
    float particleLifeSpanVariation = 0;
    float particleVelocity = 0;
    float particleVelocityVariation = 0;
    glm::vec3 acceleration{0};
    float dampingFactor = 0; ///< share of the velocity lost a second, exponentially
    float wander = 0;        ///< units that a particle strays from its way, growing with age
    float wanderFrequency = 1;
    bool affectedByGravity = false; ///< 9.8 units a second squared, downwards
    float particleMass = 1;         ///< without effect: nothing pushes particles
    bool affectedByPhysicsFields = false;
    bool lightingEnabled = false; ///< particles shine by themselves
    bool blackPassEnabled = false;

    float particleSize = 1; ///< side of the square
    float particleSizeVariation = 0;
    ParticleCurve<float> sizeOverLife; ///< factors; empty is 1
    float particleAngle = 0;           ///< degrees, counter-clockwise as seen
    float particleAngleVariation = 0;
    float particleAngularVelocity = 0; ///< degrees a second
    float particleAngularVelocityVariation = 0;
    /// 0: squares that face the camera. Above: drawn out along the velocity, by this many seconds
    /// of it on top of the size.
    float stretchFactor = 0;

    std::vector<glm::vec4> particleColors{glm::vec4(1)}; ///< sRGB and alpha; each takes one of them
    ParticleCurve<glm::vec4> colorOverLife;              ///< factors; empty is 1
    ParticleBlendMode blendMode = ParticleBlendMode::additive;
    image::ImagePtr particleImage; ///< null: a plain square

    std::uint64_t seed = 0; ///< makes this system's particles others than those of its like

    /// The particle file of the resources ("Sparkles.scnp", JSON). A missing or wrong one ends the
    /// process with a line that names file and key.
    [[nodiscard]] static std::shared_ptr<SCNParticleSystem> named(const std::string& name);
    [[nodiscard]] static foundation::Result<std::shared_ptr<SCNParticleSystem>>
    fromJSON(const std::string& text, const std::string& name);

    /// The longest that a particle can live, seconds.
    [[nodiscard]] float longestLife() const;
    /// The most that live at a time.
    [[nodiscard]] double mostAlive() const;

private:
    friend class ParticleEmitter;

    std::shared_ptr<int> atWork; ///< counts the emitters, each of which holds it
};

using SCNParticleSystemPtr = std::shared_ptr<SCNParticleSystem>;

/// No system may hold more.
inline constexpr double kMaxParticles = 20'000;

} // namespace zelvo::scene
