// SPDX-License-Identifier: MIT
#pragma once

#include "app/PerformanceReader.h"
#include "platform/foundation/JsonObject.h"

#include <optional>
#include <string>
#include <vector>

namespace zelvo::app {

/// What the cues of a performance are checked against.
struct CueContext {
    const Names& names;
    double duration; ///< of the movie, seconds
};

/// Reads the member "cues" of a performance. The result is sorted by time.
[[nodiscard]] std::vector<Cue>
readCues(foundation::JsonObject& root, const CueContext& context, foundation::Problems& problems);

/// Reads the member "speed" of the object. The result is spelt as in `names`.
[[nodiscard]] std::optional<std::string>
readSpeed(foundation::JsonObject& object, const Names& names, foundation::Problems& problems);

/// The short names of the nodes that a cue can name.
[[nodiscard]] const std::vector<std::string>& nodeNames();

} // namespace zelvo::app
