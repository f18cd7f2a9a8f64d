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

/// A Gaussian of the angle to a direction, 1 in the middle. At `degrees` it is about a third.
[[nodiscard]] float glow(const glm::vec3& direction, const glm::vec3& towards, float degrees);

/// Tone mapped, so that the brightest lamp keeps some shades, and dithered against bands.
[[nodiscard]] image::Image displayed(const image::Radiance& light);

/// A panorama from a function of the direction, and the picture to show.
template <class Function>
[[nodiscard]] Baked environment(int width, int height, Function function) {
    image::Radiance light{width, height, {}};
    light.pixels.reserve(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            light.pixels.push_back(
                function(directionAt((glm::vec2(x, y) + 0.5f) / glm::vec2(width, height))));
        }
    }
    image::Image shown = displayed(light);
    return {std::move(shown), std::move(light)};
}

} // namespace zelvo::bake
