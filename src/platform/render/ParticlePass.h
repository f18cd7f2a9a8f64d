// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/GraphicsState.h"
#include "platform/render/Snapshot.h"
#include "platform/render/TextureStore.h"

#include <cstdint>
#include <vector>

namespace zelvo::render {

/// Draws particles over what stands in the target, behind what is nearer: one draw call an
/// emitter, all from one buffer. Those that cover come first, back to front; those that shine add
/// up in any order. Particles near the camera fade, so that none ever fills the picture. What
/// shines counts as a ball, not as a disc: half its size before its middle, so that no floor cuts
/// it off.
///
/// They are drawn as encoded values, neither lit nor tone mapped. The frame's uniforms are bound.
class ParticlePass {
public:
    struct Tools {
        GraphicsState& state;
        TextureStore& textures;
    };

    /// The framebuffer is bound, with its depth.
    void draw(const Tools& tools, const Snapshot& snapshot);

private:
    /// As the shader reads it.
    struct Instance {
        glm::vec3 middle;
        glm::vec3 right; ///< half of the square's side
        glm::vec3 up;
        float lift; ///< by which it counts as nearer than it is
        std::uint32_t color;
    };

    struct Batch {
        const scene::SCNParticleSystem* system;
        std::size_t first;
        std::size_t count;
    };

    void gather(const Snapshot& snapshot, scene::ParticleBlendMode mode);
    void
    addBatch(const PlacedEmitter& placed, const CameraView& camera, scene::ParticleBlendMode mode);
    void ensureReady();
    void upload();

    ProgramHandle program;
    VertexArrayHandle array;
    BufferHandle buffer;
    std::size_t capacity = 0;

    // Kept between frames for their memory only.
    std::vector<Instance> instances;
    std::vector<std::pair<float, std::uint32_t>> order;
    std::vector<Batch> batches;
};

} // namespace zelvo::render
