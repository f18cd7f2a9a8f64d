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
#include <vector>

namespace zelvo::render {

enum class PictureUse {
    color,   ///< on a surface; premultiplied, so that filtering is right
    data,    ///< on a surface; the numbers unchanged
    backdrop ///< the background; premultiplied, without mipmaps
};

/// Keeps pictures, cubes and light probes in GPU memory, as long as their owners exist.
///
/// A video gives a new picture for each of its frames. Therefore the texture of a picture that is
/// gone is used again for the next one of the same size, for some frames.
class TextureStore {
public:
    TextureStore(DeviceInfo deviceInfo, PictureHoles& pictureHoles);

    [[nodiscard]] std::uint32_t picture(const image::ImagePtr& picture, PictureUse use);
    /// Faces are scaled to the size of the largest one.
    [[nodiscard]] std::uint32_t cube(const scene::CubeImages& faces);
    /// A 2D array texture, one layer for each level.
    [[nodiscard]] std::uint32_t probe(const std::shared_ptr<const image::LightProbe>& probe);
    /// A 1 x 1 texture for samplers that need no other.
    [[nodiscard]] std::uint32_t white();

    [[nodiscard]] std::uint32_t sampler(scene::SCNWrapMode wrapS, scene::SCNWrapMode wrapT);
    /// Bilinear, one level, clamped to the edge.
    [[nodiscard]] std::uint32_t smoothSampler();
    /// As smoothSampler, but repeats in u: for panoramas.
    [[nodiscard]] std::uint32_t backdropSampler();
    /// Bilinear, from the nearest level, clamped to the edge.
    [[nodiscard]] std::uint32_t shadowSampler();

    /// Call it once a frame. True if a texture was dropped.
    bool prune();

private:
    template <class Owner> struct Kept {
        std::weak_ptr<const Owner> owner;
        TextureHandle texture;
    };

    struct KeptPicture : Kept<image::Image> {
        int width = 0;
        int height = 0;
        bool isFine = false; ///< has the picture's fine normals
    };

    struct Spare {
        TextureHandle texture;
        int width = 0;
        int height = 0;
        bool hasLevels = false;
        int age = 0; ///< frames since its picture is gone
    };

    [[nodiscard]] TextureHandle textureFor(const image::Image& picture, bool hasLevels);
    void spareExpiredPictures();

    DeviceInfo device;
    PictureHoles& holes;
    std::map<std::pair<const image::Image*, PictureUse>, KeptPicture> pictures;
    std::vector<Spare> spares;
    std::map<const image::LightProbe*, Kept<image::LightProbe>> probes;
    std::array<std::weak_ptr<const image::Image>, 6> cubeFaces;
    TextureHandle cubeTexture; ///< the last cube; a scene has at most one
    TextureHandle whiteTexture;
    std::map<std::pair<scene::SCNWrapMode, scene::SCNWrapMode>, SamplerHandle> samplers;
    SamplerHandle smooth;
    SamplerHandle backdrop;
    SamplerHandle shadow;
};

} // namespace zelvo::render
