// SPDX-License-Identifier: MIT
#pragma once

#include "platform/scene/SCNMaterial.h"

#include <glm/vec2.hpp>

namespace zelvo::scene {

/// The part of the opacity that is the same everywhere: the transparency times the colour or number
/// in the slot `transparent`, without the pictures.
[[nodiscard]] float constantOpacity(const SCNMaterial& material);

/// The opacity at texture coordinates, as it is drawn but without filtering.
[[nodiscard]] float opacityAt(const SCNMaterial& material, const glm::vec2& uv);

} // namespace zelvo::scene
