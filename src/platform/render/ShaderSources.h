// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace zelvo::render {

/// The text of a file in shaders/, embedded at build time. An unknown name ends the process.
[[nodiscard]] std::string_view shaderSource(std::string_view name);

} // namespace zelvo::render
