// SPDX-License-Identifier: MIT
#include "platform/scene/ParticleEmitter.h"

#include "platform/foundation/Check.h"
#include "platform/foundation/Random.h"

#include <glm/common.hpp>
#include <glm/geometric.hpp>
#include <glm/trigonometric.hpp>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace zelvo::scene {

namespace {

constexpr float kPi = std::numbers::pi_v<float>;
constexpr float kGravity = 9.8f;
constexpr float kNoDamping = 1e-3f; ///< below this, the formula for damped motion is too imprecise

/// PCG output permutation (O'Neill 2014, "PCG: A Family of Simple Fast Space-Efficient
/// Statistically Good Algorithms for Random Number Generation").
std::uint32_t scrambled(std::uint32_t value) {
    const std::uint32_t state = value * 747796405U + 2891336453U;
    const std::uint32_t word = ((state >> ((state >> 28U) + 4U)) ^ state) * 277803737U;
    return (word >> 22U) ^ word;
}

std::uint32_t folded(std::uint64_t value) {
    return static_cast<std::uint32_t>(value ^ (value >> 32U));
}

/// The random numbers of one particle, always drawn in the same order.
class Draws {
public:
    explicit Draws(std::uint32_t seed)
        : state(seed) {}

    float unit() {
        state = scrambled(state + 0x9E3779B9U);
        return static_cast<float>(state >> 8U) * 0x1p-24f;
    }

    float signedUnit() { return 2 * unit() - 1; }

    float around(float value, float variation) { return value + variation * (unit() - 0.5f); }

    glm::vec3 direction() {
        const float z = signedUnit();
        const float turn = 2 * kPi * unit();
        const float r = std::sqrt(std::max(0.0f, 1 - z * z));
        return {r * std::cos(turn), r * std::sin(turn), z};
    }

private:
    std::uint32_t state;
};

template <class T> T valueAt(const ParticleCurve<T>& curve, float share, T none) {
    if (curve.empty())
        return none;
    if (share <= curve.front().at)
        return curve.front().value;
    for (std::size_t i = 1; i < curve.size(); ++i) {
        const ParticleKey<T>& left = curve[i - 1];
        const ParticleKey<T>& right = curve[i];
        if (share < right.at)
            return glm::mix(left.value, right.value, (share - left.at) / (right.at - left.at));
    }
    return curve.back().value;
}

glm::vec3 inSphere(Draws& draws, float radius, ParticleBirthLocation location) {
    const glm::vec3 way = draws.direction();
    const float share = location == ParticleBirthLocation::surface ? 1.0f : std::cbrt(draws.unit());
    return way * radius * share;
}

glm::vec3 inBox(Draws& draws, const glm::vec3& half, ParticleBirthLocation location) {
    const glm::vec3 raw{draws.signedUnit(), draws.signedUnit(), draws.signedUnit()};
    if (location == ParticleBirthLocation::volume)
        return raw * half;
    // Choose a face, weighted by area.
    const glm::vec3 areas{half.y * half.z, half.x * half.z, half.x * half.y};
    const float chosen = draws.unit() * (areas.x + areas.y + areas.z);
    const int axis = chosen < areas.x ? 0 : chosen < areas.x + areas.y ? 1 : 2;
    glm::vec3 place = raw * half;
    place[axis] = std::copysign(half[axis], raw[axis]);
    return place;
}

glm::vec3 inCylinder(Draws& draws, const glm::vec3& half, ParticleBirthLocation location) {
    const float turn = 2 * kPi * draws.unit();
    const float share = location == ParticleBirthLocation::surface ? 1.0f : std::sqrt(draws.unit());
    return {
        half.x * share * std::cos(turn),
        half.y * draws.signedUnit(),
        half.x * share * std::sin(turn)};
}

glm::vec3 birthPlace(Draws& draws, const SCNParticleSystem& system) {
    const glm::vec3& half = system.emitterShape.half;
    switch (system.emitterShape.kind) {
    case ParticleShapeKind::point:
        return glm::vec3(0);
    case ParticleShapeKind::sphere:
        return inSphere(draws, half.x, system.birthLocation);
    case ParticleShapeKind::box:
        return inBox(draws, half, system.birthLocation);
    case ParticleShapeKind::plane:
        return {half.x * draws.signedUnit(), half.y * draws.signedUnit(), 0.0f};
    case ParticleShapeKind::cylinder:
        return inCylinder(draws, half, system.birthLocation);
    }
    return glm::vec3(0);
}

/// A direction within a cone around the axis, uniformly distributed.
glm::vec3 spread(Draws& draws, const glm::vec3& axis, float wholeAngleDegrees) {
    const float half = glm::radians(std::min(wholeAngleDegrees, 360.0f) / 2);
    const float cosine = 1 - draws.unit() * (1 - std::cos(half));
    const float turn = 2 * kPi * draws.unit();
    const glm::vec3 helper = std::abs(axis.y) < 0.9f ? glm::vec3(0, 1, 0) : glm::vec3(1, 0, 0);
    const glm::vec3 side = glm::normalize(glm::cross(axis, helper));
    const glm::vec3 up = glm::cross(side, axis);
    const float sine = std::sqrt(std::max(0.0f, 1 - cosine * cosine));
    return axis * cosine + (side * std::cos(turn) + up * std::sin(turn)) * sine;
}

glm::vec3 birthDirection(Draws& draws, const SCNParticleSystem& system, const glm::vec3& place) {
    const bool goesOut =
        system.birthDirection == ParticleBirthDirection::outwards && glm::dot(place, place) > 0;
    return spread(
        draws, glm::normalize(goesOut ? place : system.emittingDirection), system.spreadingAngle);
}

struct Motion {
    glm::vec3 position;
    glm::vec3 velocity;
};

/// Solves dv/dt = a - d v, from velocity v at the origin.
Motion
moved(const glm::vec3& velocity, const glm::vec3& acceleration, float damping, float seconds) {
    if (damping < kNoDamping) {
        return {
            velocity * seconds + acceleration * (seconds * seconds / 2),
            velocity + acceleration * seconds};
    }
    const float left = std::exp(-damping * seconds);
    const glm::vec3 terminal = acceleration / damping;
    return {
        terminal * seconds + (velocity - terminal) * ((1 - left) / damping),
        terminal + (velocity - terminal) * left};
}

/// A smooth detour; zero at birth.
glm::vec3 strayed(Draws& draws, const SCNParticleSystem& system, float seconds) {
    const float reach = system.wander * std::min(seconds, 1.0f);
    const float phase = 2 * kPi * system.wanderFrequency * seconds;
    glm::vec3 detour{0};
    for (int axis = 0; axis < 3; ++axis) {
        const float start = 2 * kPi * draws.unit();
        const float own = 0.6f + 0.8f * draws.unit();
        detour[axis] = reach * (std::sin(phase * own + start) - std::sin(start));
    }
    return detour;
}

double lifeBoundOf(const SCNParticleSystem& system) {
    return std::max(1e-3, static_cast<double>(system.longestLife()));
}

} // namespace

float SCNParticleSystem::longestLife() const {
    return particleLifeSpan + particleLifeSpanVariation / 2;
}

double SCNParticleSystem::mostAlive() const {
    const double rate =
        static_cast<double>(birthRate) + static_cast<double>(birthRateVariation) / 2;
    const auto life = static_cast<double>(longestLife());
    return rate * (loops ? life : std::min(life, static_cast<double>(emissionDuration)));
}

ParticleEmitter::ParticleEmitter(SCNParticleSystemPtr given)
    : system_(std::move(given)) {
    CHECK(system_ != nullptr, "a null particle system is added");
    CHECK(
        system_->mostAlive() <= kMaxParticles,
        "{} particles at a time are too many",
        system_->mostAlive());
    if (!system_->atWork)
        system_->atWork = std::make_shared<int>(0);
    if (system_->atWork.use_count() == 1)
        *system_->atWork = 0;
    place = system_->atWork;
    // The shared random source is not used, because a replay must show the same particles.
    constexpr std::uint32_t kSpread = 0x9E3779B1U; // odd, so that different seeds stay different
    const std::uint32_t own = folded(system_->seed) ^ folded(foundation::randomSeed()) * kSpread;
    seed = scrambled(own ^ scrambled(static_cast<std::uint32_t>((*place)++)));
    age = static_cast<double>(system_->warmupDuration);
}

void ParticleEmitter::advance(double step, const glm::mat4& world) {
    if (std::exchange(hasBegun, true))
        age += step * static_cast<double>(system_->speedFactor);
    if (isOver()) {
        live_.clear();
        return;
    }
    keepPlace(world);
    evaluate();
}

bool ParticleEmitter::isOver() const {
    return !system_->loops &&
           age > static_cast<double>(system_->emissionDuration) + lifeBoundOf(*system_);
}

void ParticleEmitter::keepPlace(const glm::mat4& world) {
    const std::size_t count = places.size();
    if (system_->isLocal) {
        places.assign(1, {age, world});
    } else if (count > 1 && places[count - 1].world == world && places[count - 2].world == world) {
        places.back().age = age;
    } else {
        places.push_back({age, world});
    }
    const double forgotten = age - lifeBoundOf(*system_);
    while (places.size() > 2 && places[1].age < forgotten) {
        places.erase(places.begin());
    }
}

glm::mat4 ParticleEmitter::placeAt(double bornAt) const {
    if (places.size() == 1 || bornAt <= places.front().age)
        return places.front().world;
    const auto after = std::upper_bound(
        places.begin(), places.end(), bornAt, [](double at, const Place& p) { return at < p.age; });
    if (after == places.end())
        return places.back().world;
    const Place& left = *std::prev(after);
    const auto share = static_cast<float>((bornAt - left.age) / (after->age - left.age));
    return left.world * (1 - share) + after->world * share;
}

void ParticleEmitter::evaluate() {
    live_.clear();
    const double period = std::max(
        1e-3,
        static_cast<double>(system_->emissionDuration) +
            static_cast<double>(system_->idleDuration));
    const double oldest = std::max(0.0, age - lifeBoundOf(*system_));
    const auto last = system_->loops ? static_cast<std::uint32_t>(age / period) : 0U;
    const auto first = system_->loops ? static_cast<std::uint32_t>(oldest / period) : 0U;
    for (std::uint32_t cycle = first; cycle <= last; ++cycle) {
        evaluateCycle(cycle);
    }
}

void ParticleEmitter::evaluateCycle(std::uint32_t cycle) {
    const double period =
        static_cast<double>(system_->emissionDuration) + static_cast<double>(system_->idleDuration);
    const double start = cycle * period;
    Draws draws(scrambled(seed ^ cycle));
    const double rate = static_cast<double>(
        std::max(0.0f, draws.around(system_->birthRate, system_->birthRateVariation)));
    if (rate <= 0)
        return;
    // The fraction is rounded at random: otherwise a slow rate would never emit a particle.
    const auto share = static_cast<double>(draws.unit());
    const auto count =
        static_cast<std::uint32_t>(rate * static_cast<double>(system_->emissionDuration) + share);
    const double oldest = (age - lifeBoundOf(*system_) - start) * rate - 1;
    for (auto i = static_cast<std::uint32_t>(std::max(0.0, oldest)); i < count; ++i) {
        const double bornAt = start + (i + 0.5) / rate;
        if (bornAt > age)
            break;
        addParticle(scrambled(scrambled(seed ^ cycle) + i), bornAt);
    }
}

void ParticleEmitter::addParticle(std::uint32_t number, double bornAt) {
    const SCNParticleSystem& s = *system_;
    Draws draws(number);
    const auto seconds = static_cast<float>(age - bornAt);
    const float life = draws.around(s.particleLifeSpan, s.particleLifeSpanVariation);
    if (seconds >= life)
        return;
    const float share = seconds / life;
    const float size = std::max(0.0f, draws.around(s.particleSize, s.particleSizeVariation)) *
                       valueAt(s.sizeOverLife, share, 1.0f);
    const auto chosen =
        static_cast<std::size_t>(draws.unit() * static_cast<float>(s.particleColors.size()));
    const glm::vec4 color =
        s.particleColors[chosen] * valueAt(s.colorOverLife, share, glm::vec4(1));
    const glm::vec3 birth = birthPlace(draws, s);
    const glm::vec3 way = birthDirection(draws, s, birth);
    const float speed = draws.around(s.particleVelocity, s.particleVelocityVariation);
    const float angle =
        draws.around(s.particleAngle, s.particleAngleVariation) +
        seconds * draws.around(s.particleAngularVelocity, s.particleAngularVelocityVariation);

    const glm::mat4 world = placeAt(bornAt);
    const glm::vec3 gravity{0, s.affectedByGravity ? -kGravity : 0.0f, 0};
    const Motion motion =
        moved(glm::mat3(world) * way * speed, s.acceleration + gravity, s.dampingFactor, seconds);
    glm::vec3 position =
        glm::vec3(world * glm::vec4(s.emitterPosition + birth, 1)) + motion.position;
    if (s.wander > 0)
        position += strayed(draws, s, seconds);
    live_.push_back({position, motion.velocity, size, glm::radians(angle), color});
}

} // namespace zelvo::scene
