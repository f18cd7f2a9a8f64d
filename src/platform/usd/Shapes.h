// SPDX-License-Identifier: MIT
#pragma once

#include "platform/object/Polygons.h"
#include "platform/usd/Stage.h"

#include <optional>

namespace zelvo::usd {

/// The polygons of a cube, sphere, cylinder, cone, capsule or plane. Nothing if the prim is none.
[[nodiscard]] std::optional<object::Polygons> shapeOf(const Prim& prim);

} // namespace zelvo::usd
