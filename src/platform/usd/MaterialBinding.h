// SPDX-License-Identifier: MIT
#pragma once

#include "platform/usd/Stage.h"

#include <string>

namespace zelvo::usd {

/// The path of the material that the prim is drawn with: its own, or that of the nearest ancestor
/// that has one, or of one that says to be stronger. Empty if there is none.
[[nodiscard]] std::string boundMaterial(const Prim& prim);
/// Whether the prim itself names a material.
[[nodiscard]] bool bindsMaterial(const Prim& prim);

} // namespace zelvo::usd
