// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace zelvo::look {

enum class Flow { forwards, backwards };

/// The surface shader modifier of the flowing noise: one noise picture (specular) displaces the
/// lookup into the other (diffuse), the lookup moves along v at 0.6 a second, and what is found
/// there drives a self-lit surface in the colour of `emission`, four times as bright as it stands.
[[nodiscard]] std::string flowingNoise(Flow flow);

} // namespace zelvo::look
