// SPDX-License-Identifier: MIT
#pragma once

#include "platform/image/Image.h"
#include "platform/object/ObjectScene.h"

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace zelvo::scene {

/// The opacity of a surface at each texel: the picture's number times the factor; cut out if
/// `cutOutBelow` is above 0.
struct PictureOpacity {
    object::PictureUse use;
    float factor = 1;
    float cutOutBelow = 0;
};

/// Whether both take the same texels at each point of a surface.
[[nodiscard]] bool usesSameTexels(const object::PictureUse& a, const object::PictureUse& b);

/// Makes the pictures that a renderer's material needs from those of a 3D file: each for one
/// purpose, with single channels, scale and bias worked in. Each file is decoded once. Any thread.
/// All functions give null if the picture is missing or cannot be decoded; the scene gets a warning.
class ObjectPictures {
public:
    explicit ObjectPictures(object::ObjectScene& source);

    /// sRGB, times a linear factor. Opaque, or with the alpha of an opacity that uses the same
    /// texture in the same way.
    [[nodiscard]] image::ImagePtr color(
        const object::PictureUse& use,
        const glm::vec3& factor,
        const std::optional<PictureOpacity>& opacity);

    /// A grey of one channel.
    [[nodiscard]] image::ImagePtr number(const object::PictureUse& use);

    /// White with this alpha. Null, too, if it is opaque everywhere.
    [[nodiscard]] image::ImagePtr alpha(const PictureOpacity& opacity);

    /// A normal map with green upwards. A height map becomes one.
    [[nodiscard]] image::ImagePtr normal(const object::PictureUse& use, object::NormalPicture kind);

private:
    [[nodiscard]] image::ImagePtr decoded(std::size_t texture);

    object::ObjectScene& scene;
    std::map<std::size_t, image::ImagePtr> pictures; ///< decoded; null if that failed
};

} // namespace zelvo::scene
