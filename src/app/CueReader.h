// SPDX-License-Identifier: MIT
#pragma once

#include "app/PerformanceReader.h"
#include "platform/foundation/JsonObject.h"

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
readCues(foundation::JsonObject& root, const CueContext& context, foundation::Problems& problems);

/// The member "speed" of the object, as the speed's own title.
[[nodiscard]] std::optional<std::string>
readSpeed(foundation::JsonObject& object, const Names& names, foundation::Problems& problems);

/// Short names of the nodes that can be named.
[[nodiscard]] const std::vector<std::string>& nodeNames();

} // namespace zelvo::app
