// SPDX-License-Identifier: MIT
#pragma once

#include "platform/usd/Stage.h"

#include <string>

namespace zelvo::usd {

/// Where the value of a shader's input comes from, behind all connections.
struct InputSource {
    const Prim* shader = nullptr; ///< that computes it; null if it is a plain value
    std::string output;           ///< of the shader: "rgb"
    const Prim* holder = nullptr; ///< of the plain value; null if there is none
    std::string attribute;        ///< that holds it
};

/// Follows the connections of an input or output through graphs and interfaces. A connection that
/// leads nowhere counts as none.
[[nodiscard]] InputSource
sourceOf(const Stage& stage, const Prim& prim, const std::string& attribute);

/// The kind of a shader: "UsdUVTexture"; empty for any other prim.
[[nodiscard]] std::string shaderKind(const Prim& prim);

} // namespace zelvo::usd
