// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/image/Image.h"

#include <cstdint>
#include <functional>
#include <span>

namespace zelvo::image {

/// The processor time that a drawing may take, on all its threads.
inline constexpr int kDrawingSeconds = 10;

/// Whether a file that begins so may be an SVG drawing, plain or compressed with gzip.
[[nodiscard]] bool isSVG(std::span<const std::uint8_t> start);

/// Draws an SVG file in a process of its own: a few kilobytes can ask for hours of work and all of
/// the memory, and librsvg cannot be interrupted. Errors: `malformed`, `tooLarge` (the file, or the
/// work), `unavailable`, and `cancelled` as soon as `isStopped` says so.
[[nodiscard]] foundation::Result<ImagePtr> readSVG(
    std::span<const std::uint8_t> file,
    const std::function<bool()>& isStopped = {},
    int seconds = kDrawingSeconds);

} // namespace zelvo::image
