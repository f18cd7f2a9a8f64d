// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace zelvo::render {

/// The text of a file under shaders/, put into the program when it was built. An unknown name ends
/// the process.
[[nodiscard]] std::string_view shaderSource(std::string_view name);

} // namespace zelvo::render
