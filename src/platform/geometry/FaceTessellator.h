// SPDX-License-Identifier: MIT
#pragma once

#include <glm/vec2.hpp>

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace zelvo::geometry {

/// Fills a figure with triangles. The figure is given by its directed sides, with the inside on the
/// left. The triangles use exactly the given corners, so that they fit what else ends on those
/// sides. Returns nothing if that is impossible because sides cross.
[[nodiscard]] std::optional<std::vector<std::array<std::uint32_t, 3>>> tessellateFace(
    std::span<const glm::dvec2> points, std::span<const std::array<std::uint32_t, 2>> sides);

} // namespace zelvo::geometry
