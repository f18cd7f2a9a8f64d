// SPDX-License-Identifier: MIT
#include "platform/render/ParticlePass.h"

#include "platform/foundation/Check.h"
#include "platform/render/ShaderBlocks.h"
#include "platform/render/ShaderProgram.h"

#include <epoxy/gl.h>
#include <glm/common.hpp>
#include <glm/geometric.hpp>

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace zelvo::render {
namespace {

using scene::Particle;
using scene::ParticleBlendMode;

constexpr float kGone = 20;        ///< scene units from the camera: nothing nearer is drawn
constexpr float kUntouched = 90;   ///< scene units from the camera: nothing farther fades
constexpr float kMaxRadius = 0.6f; ///< as a share of the distance to the camera
constexpr float kFaintest = 1.0f / 255;

/// As 8 bits a channel, premultiplied.
std::uint32_t packed(const glm::vec4& color) {
    const glm::vec4 solid(glm::vec3(color) * color.a, color.a);
    std::uint32_t bytes = 0;
    for (int i = 3; i >= 0; --i) {
        const float level = std::clamp(solid[i], 0.0f, 1.0f) * 255 + 0.5f;
        bytes = (bytes << 8U) | static_cast<std::uint32_t>(level);
    }
    return bytes;
}

struct Sides {
    glm::vec3 right;
    glm::vec3 up;
};

Sides facingSides(const Particle& particle, const CameraView& camera) {
    const float half = particle.size / 2;
    const float c = std::cos(particle.angle) * half;
    const float s = std::sin(particle.angle) * half;
    return {camera.axes[0] * c + camera.axes[1] * s, camera.axes[1] * c - camera.axes[0] * s};
}

/// Stretched along the velocity as the camera sees it; a square if it moves along the line of
/// sight.
Sides stretchedSides(const Particle& particle, const CameraView& camera, float seconds) {
    const float half = particle.size / 2;
    const glm::vec3 view = particle.position - camera.position;
    const glm::vec3 across = glm::cross(particle.velocity, view);
    const float speed = glm::length(particle.velocity);
    const float length = glm::length(across);
    if (speed <= 0 || length <= 1e-4f * speed)
        return {camera.axes[0] * half, camera.axes[1] * half};
    const glm::vec3 up = particle.velocity * (seconds / 2 + half / speed);
    return {across * (half / length), up};
}

glm::vec4 litColor(const glm::vec4& color, const glm::vec3& light) {
    return {glm::vec3(color) * light, color.a};
}

ProgramHandle build(std::vector<std::string> defines) {
    auto built = buildProgram({"particles.vert", "particles.frag", std::move(defines)});
    CHECK(built.has_value(), "{}", built.error().message);
    return std::move(*built);
}

} // namespace

ParticlePass::ParticlePass()
    : quads(
          sizeof(Instance),
          {{InstanceAttribute::Kind::floats, 3, offsetof(Instance, middle)},
           {InstanceAttribute::Kind::floats, 3, offsetof(Instance, right)},
           {InstanceAttribute::Kind::floats, 3, offsetof(Instance, up)},
           {InstanceAttribute::Kind::floats, 1, offsetof(Instance, radius)},
           {InstanceAttribute::Kind::color, 4, offsetof(Instance, color)}}) {}

void ParticlePass::draw(const Tools& tools, const Snapshot& snapshot, const Place& place) {
    if (snapshot.emitters().empty())
        return;
    instances.clear();
    batches.clear();
    gather(snapshot, ParticleBlendMode::alpha, place.light);
    gather(snapshot, ParticleBlendMode::additive, place.light);
    if (batches.empty())
        return;
    quads.upload(std::as_bytes(std::span(instances)));
    const Programs& programs = programsFor(place.target);
    if (place.target != nullptr) {
        // The depth is also bound for the depth test. It is not written, so both may read it.
        glTextureBarrier();
        tools.state.bindTexture(kDepthUnit, place.target->depth(), tools.textures.smoothSampler());
    }
    for (const Batch& batch : batches) {
        const bool isGlow = batch.system->blendMode == ParticleBlendMode::additive;
        tools.state.useProgram((isGlow ? programs.glow : programs.cover).name());
        const image::ImagePtr& picture = batch.system->particleImage;
        tools.state.bindTexture(
            kPictureUnit,
            picture ? tools.textures.picture(picture, PictureUse::color) : tools.textures.white(),
            tools.textures.sampler(scene::SCNWrapMode::clamp, scene::SCNWrapMode::clamp));
        tools.state.set(
            {.depthTest = DepthTest::nearer,
             .depthWrite = DepthWrite::off,
             .culling = Culling::none,
             .blend = Blend::over});
        quads.draw(tools.state, batch.first, batch.count);
    }
}

void ParticlePass::gather(
    const Snapshot& snapshot, ParticleBlendMode mode, const ParticleLight& light) {
    for (const PlacedEmitter& placed : snapshot.emitters()) {
        if (placed.emitter->system()->blendMode == mode)
            addBatch(placed, snapshot.camera(), light);
    }
}

void ParticlePass::addBatch(
    const PlacedEmitter& placed, const CameraView& camera, const ParticleLight& light) {
    const scene::SCNParticleSystem& system = *placed.emitter->system();
    const std::span<const Particle> particles = placed.emitter->live();
    const glm::vec3 ahead = -camera.axes[2];
    const float seconds = placed.seconds * system.speedFactor;
    order.clear();
    for (std::uint32_t i = 0; i < particles.size(); ++i) {
        const float depth = glm::dot(particles[i].position - camera.position, ahead);
        if (depth > kGone)
            order.emplace_back(-depth, i);
    }
    if (system.blendMode == ParticleBlendMode::alpha)
        std::ranges::sort(order);

    const std::size_t first = instances.size();
    for (const auto& [minusDepth, i] : order) {
        const Particle& particle = particles[i];
        glm::vec4 color = particle.color;
        color.a *= placed.opacity * glm::smoothstep(kGone, kUntouched, -minusDepth);
        if (color.a < kFaintest || particle.size <= 0)
            continue;
        const Sides sides = system.stretchFactor > 0
                                ? stretchedSides(particle, camera, system.stretchFactor)
                                : facingSides(particle, camera);
        if (system.lightingEnabled)
            color = litColor(color, light.at(particle.position));
        const float radius = std::min(particle.size / 2, kMaxRadius * -minusDepth);
        instances.push_back(
            {particle.position - particle.velocity * seconds,
             sides.right,
             sides.up,
             radius,
             packed(color)});
    }
    if (instances.size() > first)
        batches.push_back({&system, first, instances.size() - first});
}

const ParticlePass::Programs& ParticlePass::programsFor(const RenderTarget* target) {
    const bool isSoft = target != nullptr;
    const bool hasSamples = isSoft && target->samples() > 1;
    Programs& programs = hasSamples ? softOfSamples : isSoft ? soft : hard;
    if (!programs.cover) {
        std::vector<std::string> defines;
        if (isSoft)
            defines.emplace_back("SOFT");
        if (hasSamples)
            defines.emplace_back("MULTISAMPLED");
        programs.cover = build(defines);
        defines.emplace_back("GLOW");
        programs.glow = build(std::move(defines));
    }
    return programs;
}

} // namespace zelvo::render
