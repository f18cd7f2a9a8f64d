// SPDX-License-Identifier: MIT
#include "platform/usd/DisplayColor.h"

#include <glm/common.hpp>
#include <glm/gtc/color_space.hpp>

#include <algorithm>
#include <cmath>

namespace zelvo::usd {
namespace {

std::uint8_t toByte(float share) {
    const float clamped = std::isnan(share) ? 0 : std::clamp(share, 0.0F, 1.0F);
    return static_cast<std::uint8_t>(std::lround(clamped * 255));
}

} // namespace

glm::u8vec4 displayColor(const glm::vec3& linear, float opacity) {
    const glm::vec3 encoded = glm::convertLinearToSRGB(glm::clamp(linear, 0.0F, 1.0F));
    return {toByte(encoded.r), toByte(encoded.g), toByte(encoded.b), toByte(opacity)};
}

} // namespace zelvo::usd
