// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/Size.h"
#include "platform/scene/SCNCamera.h"

namespace zelvo::render {

/// The largest circle of confusion of a camera's thin lens, in output pixels of a picture of that
/// size. The sensor is 24 mm high and one scene unit is a metre. The result is the circle of
/// objects infinitely far away. Objects nearer than half the focus distance have larger ones; they
/// are ignored here.
[[nodiscard]] double largestBlur(const scene::SCNCamera& camera, Size output);

/// Whether the blur is visible, which means at least half an output pixel. If not, the pass is
/// skipped.
[[nodiscard]] bool needsDepthOfField(const scene::SCNCamera& camera, Size output);

} // namespace zelvo::render
