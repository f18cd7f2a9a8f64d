// SPDX-License-Identifier: MIT
#pragma once

#include "Noise.h"
#include "Recipe.h"

#include <glm/vec3.hpp>
#include <glm/vec4.hpp>

#include <span>

// Panoramas in the layout of `image::Radiance`: -z in the middle, +x to the right of it.

namespace zelvo::bake {

/// The unit direction at coordinates of 0 to 1.
[[nodiscard]] glm::vec3 directionAt(const glm::vec2& coordinates);

/// The unit direction at an azimuth (0 is -z, 90 is +x, 180 is +z) and an elevation above the
/// horizon.
[[nodiscard]] glm::vec3 directionOf(float azimuthDegrees, float elevationDegrees);

/// Degrees above the horizon, -90 to 90.
[[nodiscard]] float elevationOf(const glm::vec3& direction);

/// A rectangular lamp with a soft cover. It faces the middle of the room.
struct Softbox {
    float azimuthDegrees;
    float elevationDegrees;
    float rollDegrees;
    glm::vec2 half; ///< half width and half height, seen from distance 1
    float edge;     ///< softness of the edge, in the same unit
    float power;    ///< radiance at the brightest point
    float falloff;  ///< 0: even; 1: dark at the lower edge
    glm::vec3 tint;
};

[[nodiscard]] glm::vec3 lightOf(std::span<const Softbox> lamps, const glm::vec3& direction);

/// What flat faces mirror. The camera looks along -z, so letters that face it mirror the surroundings
/// of +z, up to about 30 degrees to the sides and 16 up and down. There must be dark and bright, or
/// metal looks like paint. A panel above the horizon gets brighter upwards, in columns with dark
/// flags between them; below a dark line, a floor shines. All of it slants, so that a line of text
/// changes from letter to letter.
struct FaceLight {
    float panel;           ///< radiance at the brightest point
    float floor;           ///< the same below the dark line
    float columns;         ///< 0: even; 1: black between the columns
    float brightestColumn; ///< degrees from +z towards +x
    glm::vec3 above;       ///< tints
    glm::vec3 below;
};

[[nodiscard]] glm::vec3 lightOf(const FaceLight& light, const glm::vec3& direction);

/// A Gaussian of the angle to a direction, 1 in the middle. At `degrees` it is about a third.
[[nodiscard]] float glow(const glm::vec3& direction, const glm::vec3& towards, float degrees);

/// Tone mapped, so that the brightest lamp keeps some shades, and dithered against bands.
[[nodiscard]] image::Image displayed(const image::Radiance& light);

/// A panorama from a function of the direction, and the picture to show.
template <class Function>
[[nodiscard]] Baked environment(int width, int height, float matteShare, Function function) {
    image::Radiance light{width, height, {}};
    light.pixels.reserve(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            light.pixels.push_back(
                function(directionAt((glm::vec2(x, y) + 0.5f) / glm::vec2(width, height))));
        }
    }
    image::Image shown = displayed(light);
    return {std::move(shown), std::move(light), matteShare};
}

} // namespace zelvo::bake
