// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/DrawQuality.h"
#include "platform/render/FullscreenPass.h"
#include "platform/render/ItemPainter.h"
#include "platform/render/ParticlePass.h"
#include "platform/render/PixelRect.h"
#include "platform/render/RenderTarget.h"
#include "platform/render/Snapshot.h"

#include <optional>

namespace zelvo::render {

/// What a level floor mirrors: the scene, drawn smaller and without shadows from under the floor,
/// and blurred by the height of the things above it. A pixel of the floor finds its mirror image at
/// its own place on screen.
class MirrorImage {
public:
    struct Tools {
        GraphicsState& state;
        ItemPainter& painter;
        ParticlePass& particles;
        TextureStore& textures;
    };

    /// How to draw it.
    struct Request {
        const scene::SCNScene& scene;
        const Snapshot& snapshot; ///< of the frame
        const scene::SCNFloorLook& look;
        float height;   ///< of the mirror, in the world
        Size size;      ///< pixels of the mirror image
        PixelRect part; ///< of it that is needed
        FrameBlock block;
        ItemPainter::Frame items;
        int blurLookups; ///< of a pixel
        Refresh refresh;
    };

    /// Draws nothing if `seenIn` has nothing in the part.
    void draw(const Tools& tools, const Request& request);

    /// Colours; the floor adds them to its own.
    [[nodiscard]] std::uint32_t texture() const { return blurred.color(); }

    /// The part of a picture in which something is mirrored; valid after `draw`.
    [[nodiscard]] PixelRect seenIn(Size picture) const;

    /// What was drawn, seen from under the floor.
    [[nodiscard]] const Snapshot& drawn() const { return snapshot; }

private:
    void drawItems(const Tools& tools, const ItemPainter::Frame& frame);
    void blur(const Tools& tools, const Request& request);
    [[nodiscard]] bool mayStay(const Request& request) const;

    Snapshot snapshot;
    float spread = 0;                   ///< of the blur, as a share of the picture's height
    std::optional<glm::mat4> drawnFrom; ///< view of the last image; empty: there is none
    RenderTarget sharp{TargetFormat::mirror, TargetFormat::depth32};
    RenderTarget heights{TargetFormat::casters};
    RenderTarget blurred{TargetFormat::rgba8};
    FullscreenPass measure{"mirror_heights.frag"};
    FullscreenPass soften{"mirror_blur.frag"};
};

} // namespace zelvo::render
