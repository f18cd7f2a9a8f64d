// SPDX-License-Identifier: MIT
#pragma once

#include "platform/image/Image.h"
#include "platform/object/ObjectScene.h"

#include <glm/vec3.hpp>

namespace zelvo::scene {

/// Shows the vertex colours of a piece by a picture, because the renderer's vertices have none: a
/// palette of all colours times `factor` (linear). Each triangle gets the mean of its corners, and
/// texture coordinates that point at that colour; vertices are doubled where colours meet. A
/// triangle's coordinates are constant, so filtering mixes no neighbours.
[[nodiscard]] image::ImagePtr takeColors(object::Piece& piece, const glm::vec3& factor);

} // namespace zelvo::scene
