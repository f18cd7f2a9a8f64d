// SPDX-License-Identifier: MIT
#include "platform/scene/MaterialOpacity.h"

#include <glm/common.hpp>
#include <glm/vec4.hpp>

#include <algorithm>
#include <cmath>

namespace zelvo::scene {

namespace {

/// Of linear light, ITU-R BT.709.
float luminance(const image::Color& color) {
    return 0.2126f * image::linearFromSRGB(color.red) +
           0.7152f * image::linearFromSRGB(color.green) +
           0.0722f * image::linearFromSRGB(color.blue);
}

/// The place in the picture, 0 to 1. A border is taken for the last pixel.
float wrapped(float place, SCNWrapMode mode) {
    switch (mode) {
    case SCNWrapMode::repeat:
        return place - std::floor(place);
    case SCNWrapMode::mirror:
        return 1 - std::abs(place - 2 * std::floor(place / 2) - 1);
    default:
        return std::clamp(place, 0.0f, 1.0f);
    }
}

image::Color
colorAt(const SCNMaterialProperty& slot, const image::Image& picture, const glm::vec2& uv) {
    const glm::vec2 place(slot.contentsTransform * glm::vec4(uv, 0, 1));
    const auto index = [](float share, int size) {
        return std::min(static_cast<int>(share * static_cast<float>(size)), size - 1);
    };
    const int x = index(wrapped(place.x, slot.wrapS), picture.width);
    const int y = index(wrapped(place.y, slot.wrapT), picture.height);
    const auto first = 4 * (static_cast<std::size_t>(y) * static_cast<std::size_t>(picture.width) +
                            static_cast<std::size_t>(x));
    const auto part = [&](std::size_t i) {
        return static_cast<float>(picture.pixels[first + i]) / 255.0f;
    };
    return {part(0), part(1), part(2), part(3)};
}

/// What the contents of `transparent` leave of the opacity.
float remaining(const SCNMaterial& material, const image::Color& contents) {
    const float strength = material.transparent.intensity;
    return material.transparencyMode == SCNTransparencyMode::rgbZero
               ? 1 - strength * luminance(contents)
               : glm::mix(1.0f, contents.alpha, strength);
}

} // namespace

float constantOpacity(const SCNMaterial& material) {
    float opacity = material.transparency;
    if (const auto* color = std::get_if<image::Color>(&material.diffuse.contents))
        opacity *= color->alpha;
    const SCNMaterialProperty& slot = material.transparent;
    if (slot.isEmpty() || slot.image())
        return opacity;
    image::Color contents = slot.colorOr(image::Color::white(1));
    if (const auto* number = std::get_if<float>(&slot.contents))
        contents.alpha = *number;
    return opacity * remaining(material, contents);
}

float opacityAt(const SCNMaterial& material, const glm::vec2& uv) {
    float opacity = constantOpacity(material);
    if (const image::ImagePtr picture = material.diffuse.image())
        opacity *= colorAt(material.diffuse, *picture, uv).alpha;
    if (const image::ImagePtr picture = material.transparent.image())
        opacity *= remaining(material, colorAt(material.transparent, *picture, uv));
    return opacity;
}

} // namespace zelvo::scene
