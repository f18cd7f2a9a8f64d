// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace zelvo::look {

enum class Flow { forwards, backwards };

/// The shader modifier of the flowing noise. One noise picture (specular) shifts the lookup in the
/// other one (diffuse), and the lookup moves along v by 0.6 per second. The result makes the
/// surface glow in the colour of `emission`, four times as bright.
[[nodiscard]] std::string flowingNoise(Flow flow);

} // namespace zelvo::look
