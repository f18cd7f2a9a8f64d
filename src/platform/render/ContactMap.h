// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/DrawQuality.h"
#include "platform/render/Effort.h"
#include "platform/render/FullscreenPass.h"
#include "platform/render/PixelRect.h"
#include "platform/render/RenderTarget.h"
#include "platform/render/ShadowPass.h"
#include "platform/render/Snapshot.h"

#include <cstdint>
#include <vector>

namespace zelvo::render {

/// How much of the light from above a level floor loses to the things on it and just above it. It is
/// made from a picture of them, seen from the floor upwards.
class ContactMap {
public:
    /// How to draw it.
    struct Request {
        const Effort& effort;
        Refresh refresh;
    };

    /// Keeps the map if nothing has moved. False if nothing is near the floor.
    [[nodiscard]] bool draw(
        const ShadowPass::Tools& tools,
        const Snapshot& snapshot,
        const Snapshot::Floor& floor,
        const Request& request);

    /// Red is the lost share.
    [[nodiscard]] std::uint32_t texture() const { return softened.color(); }

    /// From the world to 0 .. 1 in the map.
    [[nodiscard]] static glm::mat4 toTexture(float height);

    /// The part of a picture in which the floor may be darker; valid after `draw`.
    [[nodiscard]] PixelRect seenIn(const CameraView& camera, Size picture) const;

private:
    /// Those of the soft map that may be dark; can be empty.
    [[nodiscard]] PixelRect darkTexels(float height) const;

    RenderTarget footprints{TargetFormat::casters};
    RenderTarget softened{TargetFormat::r8};
    FullscreenPass soften{"contact.frag"};
    geometry::Box reach;                    ///< of the floor
    geometry::Box shadows;                  ///< the part of the floor that the things can darken
    std::uint64_t content = 0;              ///< hash of what was drawn
    std::vector<const VisibleNode*> things; ///< of this frame
};

} // namespace zelvo::render
