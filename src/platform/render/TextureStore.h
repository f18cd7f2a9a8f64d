// SPDX-License-Identifier: MIT
#pragma once

#include "platform/image/LightProbe.h"
#include "platform/render/Context.h"
#include "platform/render/Handles.h"
#include "platform/render/PictureHoles.h"
#include "platform/scene/SCNMaterial.h"

#include <cstdint>
#include <map>
#include <memory>
#include <utility>

namespace zelvo::render {

enum class PictureUse {
    color,   ///< on a surface; premultiplied by its alpha, as filtering wants it
    data,    ///< on a surface; the numbers as they are
    backdrop ///< all around; premultiplied, without smaller copies
};

/// Pictures, cubes and light probes on the graphics side, for as long as their owners keep them.
class TextureStore {
public:
    TextureStore(DeviceInfo deviceInfo, PictureHoles& pictureHoles);

    [[nodiscard]] std::uint32_t picture(const image::ImagePtr& picture, PictureUse use);
    /// Faces of different sizes are brought to the size of the largest.
    [[nodiscard]] std::uint32_t cube(const scene::CubeImages& faces);
    /// A 2D array texture, one layer a level.
    [[nodiscard]] std::uint32_t probe(const std::shared_ptr<const image::LightProbe>& probe);
    /// 1 x 1, for a sampler that nothing else is bound to.
    [[nodiscard]] std::uint32_t white();

    [[nodiscard]] std::uint32_t sampler(scene::SCNWrapMode wrapS, scene::SCNWrapMode wrapT);
    /// Bilinear, from one level, edges clamped.
    [[nodiscard]] std::uint32_t smoothSampler();
    /// The same that repeats in u: for pictures all around.
    [[nodiscard]] std::uint32_t backdropSampler();
    /// Compares with a reversed depth, bilinear.
    [[nodiscard]] std::uint32_t shadowSampler();

    /// Once a frame. True if something was dropped.
    bool prune();

private:
    template <class Owner> struct Kept {
        std::weak_ptr<const Owner> owner;
        TextureHandle texture;
    };

    DeviceInfo device;
    PictureHoles& holes;
    std::map<std::pair<const image::Image*, PictureUse>, Kept<image::Image>> pictures;
    std::map<const image::LightProbe*, Kept<image::LightProbe>> probes;
    std::array<std::weak_ptr<const image::Image>, 6> cubeFaces;
    TextureHandle cubeTexture; ///< of the last cube asked for; a scene has one at most
    TextureHandle whiteTexture;
    std::map<std::pair<scene::SCNWrapMode, scene::SCNWrapMode>, SamplerHandle> samplers;
    SamplerHandle smooth;
    SamplerHandle backdrop;
    SamplerHandle shadow;
};

} // namespace zelvo::render
