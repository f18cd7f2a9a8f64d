// SPDX-License-Identifier: MIT
#pragma once

#include "app/CommandLine.h"
#include "export/MovieOptions.h"
#include "platform/foundation/Result.h"

#include <vector>

namespace zelvo::app {

/// The moments of a strip, seconds of the movie: evenly spread, both ends included. One moment is
/// the first.
[[nodiscard]] std::vector<double> momentsOf(const StripCommand& command);

/// Gathers the moments' frames and writes the strip with the last of them. Errors: tooLarge (a
/// strip of more than 100 million pixels).
[[nodiscard]] foundation::Result<movie::FrameTap> stripTap(const StripCommand& command);

} // namespace zelvo::app
