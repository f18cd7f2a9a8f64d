// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/FullscreenPass.h"
#include "platform/render/Snapshot.h"
#include "platform/render/TextureStore.h"

#include <cstdint>

namespace zelvo::render {

/// Fills a target with the scene's background: a colour or a panorama. A panorama is costly on the
/// CPU, so StillLayer keeps it while neither the picture nor the camera changes.
class BackgroundPass {
public:
    struct Tools {
        GraphicsState& state;
        TextureStore& textures;
        UniformArena& uniforms;
    };

    /// The target must be bound. Its depth is not touched.
    void draw(
        const Tools& tools,
        const scene::SCNMaterialProperty& background,
        const CameraView& camera,
        const RenderTarget& target);

    /// A hash of the contents. For the same camera, the same key gives the same pixels.
    [[nodiscard]] std::uint64_t key(const scene::SCNMaterialProperty& background);

    [[nodiscard]] static bool isPicture(const scene::SCNMaterialProperty& background);

private:
    FullscreenPass equirectangular{"background.frag", {"DIRECTIONS"}};
    FullscreenPass cube{"background.frag", {"DIRECTIONS", "CUBE"}};
    scene::SCNMaterialProperty::Contents lastPicture;
    std::uint64_t pictures = 0; ///< how many different ones there were, one after the other
};

} // namespace zelvo::render
