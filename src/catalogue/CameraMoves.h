// SPDX-License-Identifier: MIT
#pragma once

#include "catalogue/PressContext.h"

#include <string_view>

// The camera moves of tab CAM that end by themselves. Each is recorded under its title.

namespace zelvo::catalogue {

/// An earthquake: strong at first, then weaker. It lasts 5.5 seconds; the speed setting changes its
/// size. Random values are drawn at the press and kept for replays.
void quakeCam(const PressContext& context, std::string_view title);

/// A jump forwards and a slow return. Random values are drawn at the press and kept for replays.
void shortZoomWiggle(const PressContext& context, std::string_view title);

/// Four seconds of turbulence at every speed. Random values are drawn anew in each replay.
void turbulence(const PressContext& context, std::string_view title);

} // namespace zelvo::catalogue
