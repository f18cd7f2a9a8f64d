// SPDX-License-Identifier: MIT
#pragma once

#include "export/FrameSource.h"

namespace zelvo::movie {

/// Frames drawn by the offscreen renderer. `stopwatch` (seconds, monotonic) measures its times; if
/// null, they are 0.
[[nodiscard]] foundation::Result<std::unique_ptr<FrameSource>>
makeRendererFrames(double (*stopwatch)() = nullptr);

} // namespace zelvo::movie
