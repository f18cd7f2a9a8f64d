// SPDX-License-Identifier: MIT
#pragma once

#include "platform/scene/SCNCamera.h"

namespace zelvo::render {

/// The largest circle of confusion of a camera's thin lens, in output pixels of a picture that is
/// so many pixels high: sensor height 24 mm, one scene unit a metre. It is that of things
/// infinitely far away, which no other beyond half the focus distance exceeds; what stands nearer
/// to the eye than that is not regarded.
[[nodiscard]] double largestBlur(const scene::SCNCamera& camera, int outputHeight);

/// Whether the blur can be seen: from half an output pixel on. Below that the pass is skipped.
[[nodiscard]] bool needsDepthOfField(const scene::SCNCamera& camera, int outputHeight);

} // namespace zelvo::render
