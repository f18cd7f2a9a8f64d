// SPDX-License-Identifier: MIT
#pragma once

#include "Recipe.h"

#include <cstdint>

namespace zelvo::bake {

/// A lightning from the top to the bottom with branches: white, with a thin bright core and a glow.
/// Each seed gives another shape.
[[nodiscard]] Baked lightningPicture(int width, int height, std::uint32_t seed);

} // namespace zelvo::bake
