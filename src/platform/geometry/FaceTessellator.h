// SPDX-License-Identifier: MIT
#pragma once

#include <glm/vec2.hpp>

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace zelvo::geometry {

/// Fills a plane figure, given by its directed sides (the inside on their left), with triangles
/// over the same corners: none added, none left out, so that the figure fits whatever else ends on
/// its sides. Absent where that is not possible because sides cross.
[[nodiscard]] std::optional<std::vector<std::array<std::uint32_t, 3>>> tessellateFace(
    std::span<const glm::dvec2> points, std::span<const std::array<std::uint32_t, 2>> sides);

} // namespace zelvo::geometry
