// SPDX-License-Identifier: MIT
#include "Panorama.h"

#include "Surface.h"
#include "platform/image/Color.h"

#include <glm/common.hpp>
#include <glm/geometric.hpp>
#include <glm/trigonometric.hpp>

#include <cmath>
#include <numbers>

namespace zelvo::bake {

glm::vec3 directionAt(const glm::vec2& coordinates) {
    constexpr float kPi = std::numbers::pi_v<float>;
    const float azimuth = (coordinates.x - 0.5f) * 2 * kPi;
    const float polar = coordinates.y * kPi;
    return {
        std::sin(polar) * std::sin(azimuth), std::cos(polar), -std::sin(polar) * std::cos(azimuth)};
}

glm::vec3 directionOf(float azimuthDegrees, float elevationDegrees) {
    return directionAt({azimuthDegrees / 360 + 0.5f, 0.5f - elevationDegrees / 180});
}

float elevationOf(const glm::vec3& direction) {
    return glm::degrees(std::asin(glm::clamp(direction.y, -1.0f, 1.0f)));
}

glm::vec3 lightOf(std::span<const Softbox> lamps, const glm::vec3& direction) {
    glm::vec3 sum{0};
    for (const Softbox& lamp : lamps) {
        const glm::vec3 middle = directionOf(lamp.azimuthDegrees, lamp.elevationDegrees);
        const float ahead = glm::dot(direction, middle);
        if (ahead <= 0.02f)
            continue;
        const glm::vec3 level = directionOf(lamp.azimuthDegrees + 90, 0);
        const glm::vec3 rise = glm::cross(level, middle);
        const float roll = glm::radians(lamp.rollDegrees);
        const glm::vec3 right = level * std::cos(roll) + rise * std::sin(roll);
        const glm::vec3 up = rise * std::cos(roll) - level * std::sin(roll);

        const glm::vec2 place =
            glm::vec2(glm::dot(direction, right), glm::dot(direction, up)) / ahead;
        const glm::vec2 beyond = glm::max(glm::abs(place) - lamp.half + lamp.edge, glm::vec2(0));
        const float cover = 1 - glm::smoothstep(0.0f, lamp.edge, glm::length(beyond));
        if (cover <= 0)
            continue;
        const float height = glm::clamp(place.y / lamp.half.y * 0.5f + 0.5f, 0.0f, 1.0f);
        sum += lamp.tint * (lamp.power * cover * glm::mix(1.0f, height * height, lamp.falloff));
    }
    return sum;
}

glm::vec3 lightOf(const FaceLight& light, const glm::vec3& direction) {
    constexpr float kSlant = 0.22f;         // degrees up for each to the left
    constexpr float kColumnDegrees = 27.0f; // from one column to the next
    if (direction.z <= 0)
        return glm::vec3(0);
    const float across = glm::degrees(std::atan2(direction.x, direction.z));
    const float elevation = elevationOf(direction);
    const float up = elevation + kSlant * across;
    const float wave =
        std::cos(glm::radians((across - light.brightestColumn) * 360 / kColumnDegrees));
    const float share = 1 - light.columns * glm::smoothstep(0.85f, -0.6f, wave);
    const float rise = glm::smoothstep(-3.0f, 15.0f, up);
    const float end = 1 - glm::smoothstep(19.0f, 36.0f, elevation);
    const float below = std::max(0.0f, -5.5f - up);
    const float shine = glm::smoothstep(-2.5f, -6.0f, up) * std::exp(-below * below / 60);
    const float sides = 1 - glm::smoothstep(44.0f, 74.0f, std::abs(across));
    return sides *
           (light.above * (light.panel * share * rise * end) + light.below * (light.floor * shine));
}

float glow(const glm::vec3& direction, const glm::vec3& towards, float degrees) {
    const float angle =
        glm::degrees(std::acos(glm::clamp(glm::dot(direction, towards), -1.0f, 1.0f)));
    return std::exp(-angle * angle / (degrees * degrees));
}

image::Image displayed(const image::Radiance& light) {
    image::Image result(light.width, light.height);
    Dice dice(91);
    std::size_t at = 0;
    for (const glm::vec3& pixel : light.pixels) {
        for (int i = 0; i < 3; ++i) {
            const float shown = image::sRGBFromLinear(1 - std::exp(-pixel[i]));
            result.pixels[at++] = byteOf(shown + (dice.unit() - dice.unit()) / 255);
        }
        result.pixels[at++] = 255;
    }
    return result;
}

} // namespace zelvo::bake
