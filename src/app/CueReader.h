// SPDX-License-Identifier: MIT
#pragma once

#include "app/ObjectReader.h"
#include "app/PerformanceReader.h"

#include <optional>
#include <string>
#include <vector>

namespace zelvo::app {

/// What the cues of a performance are held against.
struct CueContext {
    const Names& names;
    double duration; ///< of the movie, seconds
};

/// The member "cues" of a performance, in order of time.
[[nodiscard]] std::vector<Cue>
readCues(const ObjectReader& root, const CueContext& context, Problems& problems);

/// The member "speed" of the object, as the speed's own title.
[[nodiscard]] std::optional<std::string>
readSpeed(const ObjectReader& object, const Names& names, Problems& problems);

/// Short names of the nodes that can be named.
[[nodiscard]] const std::vector<std::string>& nodeNames();

} // namespace zelvo::app
