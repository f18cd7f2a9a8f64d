// SPDX-License-Identifier: MIT
#pragma once

#include "app/CommandLine.h"
#include "platform/foundation/Result.h"
#include "platform/image/Image.h"
#include "platform/sound/Waveform.h"

#include <string>

namespace zelvo::app {

/// The time from label to label of a ruler, in seconds, such that labels are at least `minDistance`
/// seconds from each other.
[[nodiscard]] double labelStep(double minDistance);

/// "1:05", "1:02:03", or "0:01.5" where the step is below a second.
[[nodiscard]] std::string labelOf(double seconds, double step);

/// The whole song from edge to edge, its title above and a ruler below. Errors: the font cannot be
/// read.
[[nodiscard]] foundation::Result<image::Image>
drawWaveform(const sound::Waveform& waveform, const std::string& title, PictureSize size);

} // namespace zelvo::app
