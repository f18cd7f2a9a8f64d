// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/ContactMap.h"
#include "platform/render/DrawQuality.h"
#include "platform/render/MirrorImage.h"

#include <map>

namespace zelvo::render {

/// Draws onto a floor what it shows of the things above: their mirror image and the dark places
/// under them. The floor itself is drawn before, like any item, and stays the same when something
/// moves above it.
class FloorPass {
public:
    struct Tools {
        GraphicsState& state;
        ItemPainter& painter;
        ParticlePass& particles;
        TextureStore& textures;
        MeshStore& meshes;
        SurfaceShaders& shaders;
    };

    struct Frame {
        const scene::SCNScene& scene;
        const Snapshot& snapshot;
        const FrameBlock& block;
        const ItemPainter::Frame& items;
        const RenderTarget& target;
        Detail detail = Detail::full;
    };

    /// Draws the pictures that `drawOn` needs.
    void prepare(const Tools& tools, const Frame& frame);
    void drawOn(const Tools& tools, const Frame& frame);

private:
    [[nodiscard]] std::uint32_t program(bool hasRoughness);
    void drawMirror(const Tools& tools, const Frame& frame);

    MirrorImage mirror;
    ContactMap contact;
    bool hasContact = false;
    int turn = 0; ///< counts frames in motion; 0 at full detail
    ProgramHandle plain;
    ProgramHandle textured;
};

} // namespace zelvo::render
