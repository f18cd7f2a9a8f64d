// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/GraphicsState.h"
#include "platform/render/Snapshot.h"
#include "platform/render/TextureStore.h"

#include <cstdint>
#include <vector>

namespace zelvo::render {

/// Draws the particles of all emitters: one draw call an emitter, from one shared buffer. Depth is
/// tested but not written. Emitters that cover come first, sorted back to front; emitters that add
/// light follow in any order.
///
/// Particles near the camera fade, so that none fills the picture. A particle that adds light is
/// drawn half its size nearer, like a ball, so that a floor does not cut it off.
///
/// Colours are shown as they are, without lighting; glows add up in linear light. The frame's
/// uniforms must be bound.
class ParticlePass {
public:
    struct Tools {
        GraphicsState& state;
        TextureStore& textures;
    };

    /// The framebuffer must be bound, with its depth.
    void draw(const Tools& tools, const Snapshot& snapshot);

private:
    /// In the layout that the shader reads.
    struct Instance {
        glm::vec3 middle;
        glm::vec3 right; ///< half of the square's side
        glm::vec3 up;
        float lift; ///< scene units towards the camera, for the depth test only
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

    ProgramHandle cover;
    ProgramHandle glow;
    VertexArrayHandle array;
    BufferHandle buffer;
    std::size_t capacity = 0;

    // Kept between frames to reuse their memory.
    std::vector<Instance> instances;
    std::vector<std::pair<float, std::uint32_t>> order;
    std::vector<Batch> batches;
};

} // namespace zelvo::render
