// SPDX-License-Identifier: MIT
#pragma once

#include "app/CommandLine.h"
#include "export/MovieOptions.h"
#include "platform/foundation/Result.h"

#include <vector>

namespace zelvo::app {

/// The moments of a strip, in seconds of the movie, at equal distances. The first is `from` and the
/// last is `to`; a single one is `from`.
[[nodiscard]] std::vector<double> momentsOf(const StripCommand& command);

/// Collects the frames of the moments, and writes the strip when it has all of them. Errors:
/// tooLarge (a strip of more than 100 million pixels).
[[nodiscard]] foundation::Result<movie::FrameTap> stripTap(const StripCommand& command);

} // namespace zelvo::app
