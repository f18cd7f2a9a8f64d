// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/Size.h"

#include <cstdint>
#include <span>

namespace zelvo::render {

/// Writes two rows of an RGBA picture into the planes Y, U, V that lie one after the other without
/// gaps: ITU-R BT.709, limited range. Chroma samples lie on the left pixel of a pair, weighed 1, 2,
/// 1, and between its two rows. The size is even both ways, y is the upper row's number. The
/// shader's counterpart is i420.frag.
void writeYuvRows(const std::uint8_t* rows, int y, Size size, std::span<std::uint8_t> planes);

} // namespace zelvo::render
