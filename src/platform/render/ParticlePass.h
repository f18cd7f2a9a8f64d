// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/GraphicsState.h"
#include "platform/render/InstanceBuffer.h"
#include "platform/render/ParticleLight.h"
#include "platform/render/RenderTarget.h"
#include "platform/render/Snapshot.h"
#include "platform/render/TextureStore.h"

#include <cstdint>
#include <vector>

namespace zelvo::render {

/// Draws the particles of all emitters: one draw call an emitter, from one shared buffer. Depth is
/// tested but not written. Emitters that cover come first, sorted back to front; emitters that glow
/// follow, the youngest particles last.
///
/// Particles near the camera fade, so that none fills the picture. Each is a soft ball: it fades
/// where a surface cuts through it, so that no straight line shows.
///
/// A glow adds its light, but where it is strong it also covers what is behind. So many glows
/// together keep their colour, and a glow is seen in front of white.
///
/// Colours are shown as they are, or lit (`lightingEnabled`). The frame's uniforms must be bound.
class ParticlePass {
public:
    struct Tools {
        GraphicsState& state;
        TextureStore& textures;
    };

    /// What the particles meet.
    struct Place {
        const RenderTarget* target; ///< its depth makes them soft; null: surfaces cut them off
        const ParticleLight& light; ///< falls on those that are lit
    };

    ParticlePass();

    /// The framebuffer must be bound, with its depth.
    void draw(const Tools& tools, const Snapshot& snapshot, const Place& place);

private:
    /// In the layout that the shader reads.
    struct Instance {
        glm::vec3 middle;
        glm::vec3 right; ///< half of the square's side
        glm::vec3 up;
        float radius; ///< of the ball, along the line of sight
        std::uint32_t color;
    };

    struct Batch {
        const scene::SCNParticleSystem* system;
        std::size_t first;
        std::size_t count;
    };

    /// The shaders for one kind of depth.
    struct Programs {
        ProgramHandle cover;
        ProgramHandle glow;
    };

    void
    gather(const Snapshot& snapshot, scene::ParticleBlendMode mode, const ParticleLight& light);
    void
    addBatch(const PlacedEmitter& placed, const CameraView& camera, const ParticleLight& light);
    [[nodiscard]] const Programs& programsFor(const RenderTarget* target);

    Programs hard;
    Programs soft;
    Programs softOfSamples;
    InstanceBuffer quads;

    // Kept between frames to reuse their memory.
    std::vector<Instance> instances;
    std::vector<std::pair<float, std::uint32_t>> order;
    std::vector<Batch> batches;
};

} // namespace zelvo::render
