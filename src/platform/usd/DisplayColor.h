// SPDX-License-Identifier: MIT
#pragma once

#include <glm/gtc/type_precision.hpp>
#include <glm/vec3.hpp>

namespace zelvo::usd {

/// Of what has neither a material nor a colour. Linear.
inline constexpr float kPlainGray = 0.18F;

/// A linear colour as sRGB. Out of range is clamped; what is no number counts as 0.
[[nodiscard]] glm::u8vec4 displayColor(const glm::vec3& linear, float opacity);

} // namespace zelvo::usd
