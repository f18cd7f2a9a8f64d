// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/ContactMap.h"
#include "platform/render/DrawQuality.h"
#include "platform/render/MirrorImage.h"

#include <array>

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
    /// Where drawOn draws. After prepare.
    [[nodiscard]] PixelRect seenPart(const Frame& frame) const;
    /// Where drawOn can make the floor darker.
    [[nodiscard]] PixelRect darkPart(const CameraView& camera, Size picture) const;
    /// Darkens what is behind a floor that is left out, as shadows would darken the floor. The
    /// shadows' image is bound.
    void catchShadows(const Tools& tools, const Frame& frame, const PixelRect& part);

private:
    [[nodiscard]] std::uint32_t program(bool hasRoughness, bool isLeftOut);
    void drawMirror(const Tools& tools, const Frame& frame);

    MirrorImage mirror;
    ContactMap contact;
    bool hasContact = false;
    int turn = 0;                          ///< counts frames in motion; 0 at full detail
    std::array<ProgramHandle, 4> programs; ///< with or without picture, left out or not
    ProgramHandle catching;
};

} // namespace zelvo::render
