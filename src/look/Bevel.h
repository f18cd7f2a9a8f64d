// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace zelvo::look {

/// The cross-section of a letter's chamfer.
enum class BevelProfile : std::uint8_t { linear = 0, rounded = 1 };

/// The material of a chamfer: `inner` is the front material, `outer` the band material.
enum class BevelInnerOuter : std::uint8_t { inner = 0, outer = 1 };

} // namespace zelvo::look
