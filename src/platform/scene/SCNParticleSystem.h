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

/// Where particles are born, around the node. A plane is parallel to x and y; a cylinder's axis is
/// y.
struct ParticleShape {
    ParticleShapeKind kind = ParticleShapeKind::point;
    /// half sides; x is the radius of round shapes, y half the height of a cylinder
    glm::vec3 half{0};

    [[nodiscard]] static ParticleShape sphere(float radius) {
        return {ParticleShapeKind::sphere, glm::vec3(radius)};
    }
};

enum class ParticleBirthLocation { volume, surface };
enum class ParticleBirthDirection {
    constant, ///< emittingDirection
    /// from the node's middle through the place of birth; at the middle, emittingDirection
    outwards,
};
enum class ParticleBlendMode { alpha, additive };

/// A value at a share of a particle's life (0 = birth, 1 = death). Linear between two keys,
/// constant outside.
template <class T> struct ParticleKey {
    float at;
    T value;
};

template <class T> using ParticleCurve = std::vector<ParticleKey<T>>;

/// How particles are born, move and look. Units: seconds, scene units, degrees. `…Variation` is the
/// width of a uniform spread around a value (sizes, lives and rates never fall below 0).
///
/// The path of a particle is a formula of its number and its emitter's seed. So it does not depend
/// on the time steps.
class SCNParticleSystem {
public:
    float birthRate = 10; ///< particles a second while emitting
    float birthRateVariation = 0;
    float warmupDuration = 0;   ///< the system starts as if it had run for so many seconds
    float emissionDuration = 1; ///< seconds of each emission
    float idleDuration = 0;     ///< seconds between two emissions
    bool loops = true;          ///< false: only one emission
    float speedFactor = 1;      ///< multiplies time for all of the following

    ParticleShape emitterShape;
    glm::vec3 emitterPosition{0}; ///< middle of the shape, in the node's space
    ParticleBirthLocation birthLocation = ParticleBirthLocation::volume;
    ParticleBirthDirection birthDirection = ParticleBirthDirection::constant;
    glm::vec3 emittingDirection{0, 1, 0};
    float spreadingAngle = 0; ///< degrees of the whole cone; 360 is all directions
    bool isLocal = false;     ///< particles move with the node after their birth

    float particleLifeSpan = 1;
    float particleLifeSpanVariation = 0;
    float particleVelocity = 0;
    float particleVelocityVariation = 0;
    glm::vec3 acceleration{0};
    float dampingFactor = 0; ///< share of the velocity lost per second (exponential)
    float wander = 0;        ///< how far a particle strays from its path, in units; grows with age
    float wanderFrequency = 1;
    bool affectedByGravity = false; ///< 9.8 units per second squared, down
    float particleMass = 1;         ///< has no effect
    bool affectedByPhysicsFields = false;
    bool lightingEnabled = false; ///< false: particles are drawn unlit
    bool blackPassEnabled = false;

    float particleSize = 1; ///< side of the square
    float particleSizeVariation = 0;
    ParticleCurve<float> sizeOverLife; ///< factors; empty = 1
    float particleAngle = 0;           ///< degrees, counter-clockwise on screen
    float particleAngleVariation = 0;
    float particleAngularVelocity = 0; ///< degrees per second
    float particleAngularVelocityVariation = 0;
    /// 0: squares that face the camera. Above 0: stretched along the velocity, longer by the way of
    /// so many seconds.
    float stretchFactor = 0;

    /// sRGB with alpha; each particle gets one of them
    std::vector<glm::vec4> particleColors{glm::vec4(1)};
    ParticleCurve<glm::vec4> colorOverLife; ///< factors; empty = 1
    ParticleBlendMode blendMode = ParticleBlendMode::additive;
    image::ImagePtr particleImage; ///< null: a plain square

    std::uint64_t seed = 0; ///< gives systems of the same kind different particles

    /// Reads a particle file (JSON, such as "Sparkles.scnp") from the resources. A missing or wrong
    /// file ends the process with a line that names file and key.
    [[nodiscard]] static std::shared_ptr<SCNParticleSystem> named(const std::string& name);
    [[nodiscard]] static foundation::Result<std::shared_ptr<SCNParticleSystem>>
    fromJSON(const std::string& text, const std::string& name);

    /// The longest possible life of a particle, in seconds.
    [[nodiscard]] float longestLife() const;
    /// The largest possible number of particles alive at a time.
    [[nodiscard]] double mostAlive() const;

private:
    friend class ParticleEmitter;

    std::shared_ptr<int> atWork; ///< each emitter holds it; its use count is the number of emitters
};

using SCNParticleSystemPtr = std::shared_ptr<SCNParticleSystem>;

/// The limit of particles in one system.
inline constexpr double kMaxParticles = 20'000;

} // namespace zelvo::scene
